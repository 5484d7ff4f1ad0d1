#include "detail/VoucherDates.h"

#include "form518/LawBands.h"
#include "values/Dates.h"
#include "values/Text.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

VeredictoComprobante RechazaFecha(const QString& texto) {
    return VeredictoComprobante::Critico(texto, CampoComprobante::Fecha);
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

bool Fechadesistema(QStringView fecha, const QDate& hoy) {
    const QString dia = Mid(fecha, 7, 4).toString() + Mid(fecha, 4, 2).toString() + Mid(fecha, 1, 2).toString();
    return dia <= FormatFecha(hoy, u"yyyymmdd");
}

VeredictoComprobante ValidaFechaEscrita(const QString& fecha) {
    if (fecha == u"__/__/____")
        return RechazaFecha(u"Debe ingresar la fecha de emisión."_s);
    if (!EsFecha(fecha))
        return RechazaFecha(u"Debe ingresar una fecha válida."_s);
    return Veredicto::Bien();
}

VeredictoComprobante ValidaFecha(const QString& fecha, Periodo declarado, const QDate& hoy) {
    const Periodo mes = Periodo::DeFecha(fecha).value_or(Periodo());
    if (mes > declarado)
        return RechazaFecha(u"La fecha del comprobante de percepción no es válida cuando es posterior al período "_s +
                            declarado.EnPantalla());
    if (mes < declarado)
        return RechazaFecha(u"La fecha del comprobante de percepción no puede ser anterior al 01/"_s +
                            declarado.EnPantalla());
    if (!EsMes(fecha))
        return RechazaFecha(u"La fecha no es válida."_s);
    return ValidaReloj(fecha, hoy,
                       u"La fecha del comprobante de percepción no puede ser mayor a la fecha del sistema."_s);
}

std::optional<VeredictoComprobante> ValidaFechaOrigen(const QString& fecha, Periodo declarado, const QDate& hoy,
                                                      const Confirmacion& confirma) {
    const Periodo mes = Periodo::DeFecha(fecha).value_or(Periodo());
    if (mes > declarado)
        return RechazaFecha( // "válido" is the system's text, to the letter
            u"La fecha de emisión del comprobante de pago no es válido cuando es posterior al período "_s +
            declarado.EnPantalla());
    const Mensaje pregunta{
        Icono::Pregunta, u"La fecha del comprobante de pago es anterior al 01/01/2005. ¿Desea continuar?"_s, {}};
    if (mes < kPrimerPeriodo && confirma && !confirma(pregunta))
        return std::nullopt;
    if (!EsMes(fecha))
        return RechazaFecha(u"La fecha no es válida."_s);
    return ValidaReloj(fecha, hoy,
                       u"La fecha de emisión del comprobante de pago no puede ser mayor a la fecha del sistema."_s);
}

} // namespace xa518
