#include "form518/FormCatalogs.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

Catalogado TiposDocumento() {
    using Doc = TramosDocumento;
    return {u"document_types.csv"_s,
            u"044"_s,
            {{}, {{u"tipo", 1, 2}}},
            {{},
             {Doc::kDescripcion,
              Doc::kCorto,
              Doc::kLargo,
              {u"usos_49", 49, 6},
              Doc::kOrden,
              {u"usos_59", 59, 16},
              UsosDocumento::kEnInformes,
              {u"usos_76", 76, 6},
              UsosDocumento::kEnSujetos,
              {u"uso_126", 126, 1},
              Doc::kTipoDato,
              Doc::kTipoLongitud}}};
}

Catalogado TasasPercepcion() {
    using Tasa = TramosTasa;
    return {u"perception_rates.csv"_s,
            u"953"_s,
            {u' ' + Tasa::kFijo.toString(), {Tasa::kClase, Tasa::kDesde}},
            {{}, {Tasa::kFactorInicial, Tasa::kFactor, Tasa::kTasa}}};
}

} // namespace

const QList<Catalogado>& CatalogosDelFormulario() {
    static const QList<Catalogado> catalogos = {
        TiposDocumento(),
        {u"voucher_types.csv"_s,
         u"233"_s,
         {{}, {TramosTipoComprobante::kTipo}},
         {{}, {TramosTipoComprobante::kDescripcion, TramosTipoComprobante::kUso}}},
        {u"form_boxes.csv"_s,
         u"856"_s,
         {{}, {{u"formulario", 1, 4}}},
         {{}, {TramosCasilla::kValor, TramosCasilla::kCasilla}}},
        TasasPercepcion(),
        {u"control_catalogs.csv"_s, u"981"_s, {{}, {TramosControl::kFormulario}}, {{}, {{u"catalogos", 1, 60}}}},
    };
    return catalogos;
}

} // namespace xa518
