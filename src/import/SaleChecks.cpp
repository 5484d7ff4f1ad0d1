#include "form518/WorkTables.h"
#include "import/FieldChecks.h"
#include "import/FieldRules.h"
#include "values/Decimal.h"
#include "values/Format.h"
#include "values/ObjetoUtil.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// How a type of document stands in the catalogue.
QString CodigoDe(const QString& tipo) {
    return Format(tipo, u"00");
}

Codigo CompruebaRuc(const QString& campo, bool cabe, const ContextoImportacion& contexto) {
    if (campo == contexto.docDeclarante.Texto())
        return "0221"_L1;
    return cabe && ObjetoUtil::ValidaRUC(campo) ? kAceptado : "0001"_L1;
}

/// Wanted: a credit note can't be a cash-sale voucher, whatever the catalogue says, since it sells nothing.
bool EsTipoDeVenta(const QString& tipo, const LineaComprobada& linea, const ContextoImportacion& contexto) {
    if (tipo == u"07" || !contexto.ventas.comprobantes.contains(tipo, Qt::CaseInsensitive))
        return false;
    return linea.Si(Campo::CreditoFiscal) ? EsUnoDe(tipo, std::array{"01"_L1, "08"_L1, "12"_L1}) : tipo != u"01";
}

} // namespace

/// Wanted: the catalogue decides here, and a fixed list in a file of perception vouchers; so the empty type, which is
/// found in any list, is refused here.
Codigo CompruebaTipoDocVenta(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto) {
    if (campo.size() > 2)
        return "0888"_L1;
    if (!contexto.ventas.documentos.contains(CodigoDe(campo)))
        return "0009"_L1;
    linea.PonTipoDoc(campo);
    return kAceptado;
}

Codigo CompruebaNumDocVenta(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto) {
    const std::optional<TipoDocumento> tipo = contexto.ventas.documentos.value(CodigoDe(linea[Campo::TipoDoc]));
    const bool cabe = tipo && AdmiteNumero(*tipo, campo);
    linea.clienteEsEmpresa = EsEmpresa(CodigoDocumento::De(linea.tipoDocLinea), campo);
    if (linea.tipoDocLinea == u'6')
        return CompruebaRuc(campo, cabe, contexto);
    const bool corto = linea.tipoDocLinea == u'1' && campo.size() < kLargoDni;
    return cabe && !corto && !EsNumericoCero(campo) ? kAceptado : "0010"_L1;
}

/// The types that aren't issued electronically have no letter in their series.
Codigo CompruebaTipoCpVenta(QString& campo, LineaComprobada& linea, const ContextoImportacion& contexto) {
    if (campo.isEmpty())
        return "0883"_L1;
    campo = ObjetoUtil::CompletaIzquierda(campo, kAnchoTipo, u'0');
    if (!EsTipoDeVenta(campo, linea, contexto))
        return "0883"_L1;
    const bool admiteLetra = EsUnoDe(campo, std::array{"01"_L1, "03"_L1, "08"_L1});
    return admiteLetra || EsNumerico(linea[Campo::SeriePercepcion]) ? kAceptado : "0857"_L1;
}

} // namespace xa518
