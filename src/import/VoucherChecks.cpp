#include "form518/LawBands.h"
#include "import/FieldChecks.h"
#include "import/FieldRules.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

bool EsSiNo(const QString& campo) {
    return campo == u'0' || campo == u'1';
}

Codigo CompruebaMes(const QDate& fecha, Periodo periodoDeclarado) {
    if (periodoDeclarado != Periodo::DelDia(fecha))
        return "0991"_L1;
    // Wanted: no real date has a month below 1; the code stays with its text.
    return fecha.month() < 1 && fecha.year() == kPrimerPeriodo.Anio() ? "0876"_L1 : kAceptado;
}

bool SeriePermitidaEn(const QDate& fecha, QStringView serie) {
    return AdmiteSerieConLetra(fecha) ? EsSerieConLetra(serie) : EmpiezaConDigito(serie);
}

} // namespace

Codigo CompruebaSeriePercepcion(QString& campo, LineaComprobada& /*linea*/, const ContextoImportacion& /*contexto*/) {
    return CompletaSerie(campo) ? kAceptado : "0857"_L1;
}

Codigo CompruebaNumeroPercepcion(QString& campo, LineaComprobada& /*linea*/, const ContextoImportacion& /*contexto*/) {
    return CompletaNumero(campo, kAnchoNumero) ? kAceptado : "0858"_L1;
}

Codigo CompruebaFechaEmision(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto) {
    const std::optional<QDate> fecha = FechaImportada(campo);
    if (!fecha)
        return "0859"_L1;
    if (!Fechadesistema(*fecha, contexto.hoy))
        return "0989"_L1;
    const Codigo codigo = CompruebaMes(*fecha, contexto.periodoDeclarado);
    if (!codigo.isEmpty())
        return codigo;
    return SeriePermitidaEn(*fecha, linea[Campo::SeriePercepcion]) ? kAceptado : "0857"_L1;
}

Codigo CompruebaCreditoFiscal(QString& campo, LineaComprobada& /*linea*/, const ContextoImportacion& /*contexto*/) {
    return EsSiNo(campo) ? kAceptado : "0875"_L1;
}

Codigo CompruebaRespuestaVenta(QString& campo, LineaComprobada& /*linea*/, const ContextoImportacion& contexto) {
    if (!PreguntaPorZona(contexto.periodoDeclarado))
        return campo.isEmpty() ? kAceptado : "0869"_L1;
    return EsSiNo(campo) ? kAceptado : "0870"_L1;
}

Codigo CompruebaListaClientes(QString& campo, LineaComprobada& /*linea*/, const ContextoImportacion& /*contexto*/) {
    return EsSiNo(campo) ? kAceptado : "0873"_L1;
}

Codigo CompruebaMontoCobrado(QString& campo, LineaComprobada& /*linea*/, const ContextoImportacion& /*contexto*/) {
    static constexpr ReglaMonto kRegla{.vacio = "0996"_L1,
                                       .noValido = "0884"_L1,
                                       .noNumerico = "0885"_L1,
                                       .negativo = "0983"_L1,
                                       .puntos = "0886"_L1,
                                       .enteros = "0887"_L1,
                                       .largo = "0878"_L1,
                                       .maximoEnteros = 12,
                                       .admiteSigno = false};
    return CompruebaMonto(campo, kRegla);
}

} // namespace xa518
