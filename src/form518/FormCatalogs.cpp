#include "form518/FormCatalogs.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// Flags at 49 to 54 and from 59 on belong one to each form or use; this form reads those at 75 and 82.
Catalogado TiposDocumento() {
    return {u"document_types.csv"_s,
            u"044"_s,
            {{}, {{u"tipo"_s, 1, 2}}},
            {{},
             {{u"descripcion"_s, 1, 30},
              {u"corto"_s, 32, 11},
              {u"largo"_s, 46, 2},
              {u"usos_49"_s, 49, 6},
              {u"orden"_s, 56, 2},
              {u"usos_59"_s, 59, 16},
              {u"en_informes"_s, 75, 1},
              {u"usos_76"_s, 76, 6},
              {u"en_sujetos"_s, 82, 1},
              {u"uso_126"_s, 126, 1},
              {u"tipo_dato"_s, 128, 1},
              {u"tipo_longitud"_s, 130, 1}}}};
}

Catalogado TasasPercepcion() {
    return {u"perception_rates.csv"_s,
            u"953"_s,
            {u" 010909"_s, {{u"clase"_s, 1, 1}, {u"desde"_s, 8, 6}}},
            {{}, {{u"factor_inicial"_s, 2, 6}, {u"factor"_s, 21, 9}, {u"tasa"_s, 31, 6}}}};
}

} // namespace

const QList<Catalogado>& CatalogosDelFormulario() {
    static const QList<Catalogado> catalogos = {
        TiposDocumento(),
        {u"voucher_types.csv"_s,
         u"233"_s,
         {{}, {{u"tipo"_s, 1, 2}}},
         {{}, {{u"descripcion"_s, 1, 50}, {u"uso_0518"_s, 64, 1}}}},
        {u"form_boxes.csv"_s,
         u"856"_s,
         {{}, {{u"formulario"_s, 1, 4}}},
         {{}, {{u"valor"_s, 5, 10}, {u"casilla"_s, 20, 3}}}},
        TasasPercepcion(),
        {u"control_catalogs.csv"_s, u"981"_s, {{}, {{u"formulario"_s, 1, 4}}}, {{}, {{u"catalogos"_s, 1, 60}}}},
    };
    return catalogos;
}

} // namespace xa518
