#include "form518/LawBands.h"
#include "import/FieldChecks.h"
#include "import/FieldRules.h"
#include "values/Decimal.h"
#include "values/ObjetoUtil.h"

#include <array>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAnchoNumeroOtros = 15;

/// Which types give a right to tax credit, and which can't be named where there is none.
Codigo CompruebaCredito(QStringView tipo, bool creditoFiscal) {
    static constexpr std::array<Codigo, 4> kConCredito{"01"_L1, "07"_L1, "08"_L1, "12"_L1};
    static constexpr std::array<Codigo, 2> kSinCredito{"03"_L1, "99"_L1};
    if (!creditoFiscal)
        return tipo == u"01" ? "0883"_L1 : kAceptado;
    if (EsUnoDe(tipo, kConCredito))
        return kAceptado;
    return EsUnoDe(tipo, kSinCredito) ? "0891"_L1 : "0883"_L1;
}

/// Some types may have a letter in front of their series.
bool SeriePermitidaEn(const QDate& fecha, const LineaComprobada& linea) {
    static constexpr std::array<Codigo, 4> kConLetra{"03"_L1, "01"_L1, "07"_L1, "08"_L1};
    const QString& serie = linea[Campo::SerieCp];
    if (!AdmiteSerieConLetra(fecha) || !EsUnoDe(linea[Campo::TipoCp], kConLetra))
        return EmpiezaConDigito(serie);
    // Wanted: a type "03" whose sale isn't answered with "0" is refused here, under the code of the series.
    return EsSerieConLetra(serie) && (linea[Campo::TipoCp] != u"03" || linea[Campo::RespuestaVenta] == u'0');
}

} // namespace

Codigo CompruebaTipoCp(QString& campo, LineaComprobada& linea, const ContextoImportacion& /*contexto*/) {
    linea.tipoCpCrudo = campo;
    linea.largoNumeroCp = campo == u"99" ? kAnchoNumeroOtros : kAnchoNumero;
    if (campo.isEmpty())
        return "0883"_L1;
    campo = ObjetoUtil::CompletaIzquierda(campo, kAnchoTipo, u'0');
    if (!EstaEnLista(campo, u"01-03-07-08-12-99"))
        return "0883"_L1;
    return CompruebaCredito(campo, linea.Si(Campo::CreditoFiscal));
}

Codigo CompruebaSerieCp(QString& campo, LineaComprobada& /*linea*/, const ContextoImportacion& /*contexto*/) {
    return CompletaSerie(campo) && !EsNumericoCero(campo) ? kAceptado : "0892"_L1;
}

Codigo CompruebaNumeroCp(QString& campo, LineaComprobada& linea, const ContextoImportacion& /*contexto*/) {
    return CompletaNumero(campo, linea.largoNumeroCp) ? kAceptado : "0858"_L1;
}

Codigo CompruebaFechaCp(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto) {
    const std::optional<QDate> fecha = FechaImportada(campo);
    if (!fecha)
        return "0859"_L1;
    if (!Fechadesistema(*fecha, contexto.hoy))
        return "0990"_L1;
    if (contexto.periodoDeclarado < Periodo::DelDia(*fecha))
        return "0868"_L1;
    return SeriePermitidaEn(*fecha, linea) ? kAceptado : "0892"_L1;
}

/// A credit note is stored with a sign, which takes one of its places.
Codigo CompruebaMontoCp(QString& campo, LineaComprobada& linea, const ContextoImportacion& /*contexto*/) {
    const bool nota = linea.EsNotaDeCredito();
    return CompruebaMonto(campo, {.vacio = "0984"_L1,
                                  .noValido = "0988"_L1,
                                  .noNumerico = "0987"_L1,
                                  .negativo = "0983"_L1,
                                  .puntos = "0986"_L1,
                                  .enteros = nota ? "0890"_L1 : "0985"_L1,
                                  .largo = "0877"_L1,
                                  .maximoEnteros = nota ? 11 : 12,
                                  .admiteSigno = nota});
}

} // namespace xa518
