#include "values/Period.h"

#include "values/Text.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMeses = 12;

QString Digitos(int valor, int ancho) {
    return QString::number(valor).rightJustified(ancho, u'0');
}

} // namespace

std::optional<Periodo> Periodo::DeTabla(QStringView texto) {
    if (texto.size() != 6 || !SonDigitos(texto))
        return std::nullopt;
    return Periodo(texto.first(4).toInt(), texto.last(2).toInt());
}

std::optional<Periodo> Periodo::DePantalla(QStringView texto) {
    const bool conBarra = texto.size() == 7 && texto[2] == u'/';
    if (!conBarra && texto.size() != 6)
        return std::nullopt;
    const std::optional<Periodo> periodo = DeTabla(texto.last(4).toString() + texto.first(2).toString());
    return periodo && periodo->Mes() >= 1 && periodo->Mes() <= kMeses ? periodo : std::nullopt;
}

std::optional<Periodo> Periodo::DeFecha(QStringView fecha) {
    return DeTabla(Mid(fecha, 7, 4).toString() + Mid(fecha, 4, 2).toString());
}

QString Periodo::Texto() const {
    return EsNinguno() ? u""_s : Digitos(m_valor, 6);
}

QString Periodo::EnPantalla() const {
    return EsNinguno() ? u""_s : Digitos(Mes(), 2) + u'/' + Digitos(Anio(), 4);
}

QString Periodo::EnLista() const {
    return EsNinguno() ? u""_s : Digitos(Mes(), 2) + Digitos(Anio(), 4);
}

Periodo Periodo::Siguiente() const {
    return Mes() == kMeses ? Periodo(Anio() + 1, 1) : Periodo(Anio(), Mes() + 1);
}

Periodo Periodo::Anterior() const {
    return Mes() == 1 ? Periodo(Anio() - 1, kMeses) : Periodo(Anio(), Mes() - 1);
}

} // namespace xa518
