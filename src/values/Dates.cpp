#include "values/Dates.h"

#include "values/Text.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

std::optional<int> Numero(QStringView digitos) {
    if (!SonDigitos(digitos))
        return std::nullopt;
    return digitos.toInt();
}

} // namespace

std::optional<QDate> LeeFecha(QStringView texto) {
    if (texto.size() != 10 || texto[2] != u'/' || texto[5] != u'/')
        return std::nullopt;
    const auto dia = Numero(texto.sliced(0, 2));
    const auto mes = Numero(texto.sliced(3, 2));
    const auto anio = Numero(texto.sliced(6, 4));
    if (!dia || !mes || !anio || !QDate::isValid(*anio, *mes, *dia))
        return std::nullopt;
    return QDate(*anio, *mes, *dia);
}

bool EsFecha(QStringView texto) {
    return LeeFecha(texto).has_value();
}

QString FormatFecha(const QDate& fecha, QStringView mascara) {
    QString resultado = mascara.toString();
    resultado.replace("dd"_L1, QString::number(fecha.day()).rightJustified(2, u'0'));
    resultado.replace("mm"_L1, QString::number(fecha.month()).rightJustified(2, u'0'));
    resultado.replace("yyyy"_L1, QString::number(fecha.year()).rightJustified(4, u'0'));
    return resultado;
}

QString FormatFecha(QStringView fecha, QStringView mascara) {
    const std::optional<QDate> dia = LeeFecha(fecha);
    return dia ? FormatFecha(*dia, mascara) : fecha.toString();
}

QString FormatHora(const QTime& hora) {
    return hora.toString(u"HH:mm:ss"_s);
}

} // namespace xa518
