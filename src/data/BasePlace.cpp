#include "data/BasePlace.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// A path may hold a "=" too, behind its folders.
bool EmpiezaConPalabraClave(const QString& ruta) {
    const qsizetype igual = ruta.indexOf(u'=');
    const QStringView palabra = QStringView(ruta).first(std::max<qsizetype>(igual, 0)).trimmed();
    return !palabra.isEmpty() &&
           std::all_of(palabra.begin(), palabra.end(), [](QChar c) { return c.isLetter() || c == u'_'; });
}

} // namespace

std::optional<EsquemaDeTrabajo> EsquemaDeTrabajo::De(QStringView nombre) {
    constexpr qsizetype kMasLargo = 48;
    const auto esMinuscula = [](QChar c) { return c >= u'a' && c <= u'z'; };
    const auto cabe = [&](QChar c) { return esMinuscula(c) || (c >= u'0' && c <= u'9') || c == u'_'; };
    if (nombre.isEmpty() || nombre.size() > kMasLargo || !esMinuscula(nombre.front()) ||
        !std::all_of(nombre.begin(), nombre.end(), cabe))
        return std::nullopt;
    return EsquemaDeTrabajo(nombre.toString());
}

bool EsDeServidor(const QString& ruta) {
    return ruta.contains("://"_L1) || EmpiezaConPalabraClave(ruta);
}

} // namespace xa518
