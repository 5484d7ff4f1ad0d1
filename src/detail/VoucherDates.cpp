#include "detail/VoucherDates.h"

#include "values/Dates.h"
#include "values/Text.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kCampo = u"MkeFecEmis"_s;

Veredicto Rechaza(const QString& texto) {
    return Veredicto::Critico(texto, kCampo);
}

QString MesYAnio(QStringView periodo) {
    return Mid(periodo, 5, 2).toString() + u'/' + Mid(periodo, 1, 4).toString();
}

/// The tests of the month by itself never fire once the date was read as one. They stay, for a mask that lets more in.
bool EsMes(QStringView fecha) {
    const int mes = Mid(fecha, 4, 2).toInt();
    return mes >= 1 && mes <= 12;
}

Veredicto ValidaReloj(const QString& fecha, const QDate& hoy, const QString& texto) {
    if (Fechadesistema(fecha, hoy))
        return Veredicto::Bien();
    return Veredicto::Critico(texto);
}

} // namespace

QString PeriodoDeFecha(QStringView fecha) {
    return Mid(fecha, 7, 4).toString() + Mid(fecha, 4, 2).toString();
}

bool Fechadesistema(QStringView fecha, const QDate& hoy) {
    return PeriodoDeFecha(fecha) + Mid(fecha, 1, 2).toString() <= FormatFecha(hoy, u"yyyymmdd");
}

Veredicto ValidaFechaEscrita(const QString& fecha) {
    if (fecha == u"__/__/____")
        return Rechaza(u"Debe ingresar la fecha de emisión."_s);
    if (!EsFecha(fecha))
        return Rechaza(u"Debe ingresar una fecha válida."_s);
    return Veredicto::Bien();
}

Veredicto ValidaFecha(const QString& fecha, const QString& periodoDeclarado, const QDate& hoy) {
    if (fecha.contains(u'_'))
        return Veredicto::Callado({});
    const QString mes = PeriodoDeFecha(fecha);
    if (mes > periodoDeclarado)
        return Rechaza(u"La fecha del comprobante de percepción no es válida cuando es posterior al período "_s +
                       MesYAnio(periodoDeclarado));
    if (mes < periodoDeclarado)
        return Rechaza(u"La fecha del comprobante de percepción no puede ser anterior al 01/"_s +
                       MesYAnio(periodoDeclarado));
    if (!EsMes(fecha))
        return Rechaza(u"La fecha no es válida."_s);
    return ValidaReloj(fecha, hoy,
                       u"La fecha del comprobante de percepción no puede ser mayor a la fecha del sistema."_s);
}

Veredicto ValidaFechaOrigen(const QString& fecha, const QString& periodoDeclarado, const QDate& hoy,
                            const Confirmacion& confirma) {
    if (fecha.contains(u'_'))
        return Veredicto::Callado({});
    const QString mes = PeriodoDeFecha(fecha);
    if (mes > periodoDeclarado)
        return Rechaza(
            u"La fecha de emisión del comprobante de pago no es válido cuando es posterior al período "_s + // wanted so
            MesYAnio(periodoDeclarado));
    const Mensaje pregunta{
        Icono::Pregunta, u"La fecha del comprobante de pago es anterior al 01/01/2005. ¿Desea continuar?"_s, {}};
    if (mes < u"200501" && confirma && !confirma(pregunta))
        return Veredicto::Callado(kCampo);
    if (!EsMes(fecha))
        return Rechaza(u"La fecha no es válida."_s);
    return ValidaReloj(fecha, hoy,
                       u"La fecha de emisión del comprobante de pago no puede ser mayor a la fecha del sistema."_s);
}

} // namespace xa518
