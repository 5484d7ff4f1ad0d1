#pragma once

#include "data/CatalogLayout.h"

namespace xa518 {

// The catalogues, and the columns of shared ones, that form 0518 alone reads.

/// Its flags in the document types, "1" where a type is offered.
struct UsosDocumento {
    static constexpr Tramo kEnInformes{u"en_informes", 75, 1};
    static constexpr Tramo kEnSujetos{u"en_sujetos", 82, 1}; ///< as a client's
};

/// The short name of a document type in the grid of clients. Wanted: one character longer than anywhere else.
inline constexpr Tramo kCortoEnGrilla{TramosDocumento::kCorto.columna, TramosDocumento::kCorto.inicio,
                                      TramosDocumento::kCorto.ancho + 1};

/// "233", voucher types. The grid of payment vouchers and the legend of the annex cut the description shorter.
struct TramosTipoComprobante {
    static constexpr Tramo kTipo{u"tipo", 1, 2};
    static constexpr Tramo kDescripcion{u"descripcion", 1, 50};
    static constexpr Tramo kDescripcionEnPagos{u"descripcion", 1, 30};
    static constexpr Tramo kDescripcionEnLeyenda{u"descripcion", 1, 35};
    static constexpr Tramo kUso{u"uso_0518", 64, 1}; ///< "1" where the type can be used
};

/// "953", perception rates: the argument has the class, a fixed part and the first month.
struct TramosTasa {
    static constexpr Tramo kClase{u"clase", 1, 1};
    static constexpr Tramo kDesde{u"desde", 8, 6};
    static constexpr Tramo kFactorInicial{u"factor_inicial", 2, 6};
    static constexpr Tramo kFactor{u"factor", 21, 9};
    static constexpr Tramo kTasa{u"tasa", 31, 6};
    static constexpr QStringView kFijo = u"010909"; ///< between class and month
};

/// "856": a box that the catalogue names, and its value.
struct TramosCasilla {
    static constexpr Tramo kValor{u"valor", 5, 10};
    static constexpr Tramo kCasilla{u"casilla", 20, 3};
};

/// "981": the catalogues of the control sum, each three digits and a separator.
struct TramosControl {
    static constexpr Tramo kFormulario{u"formulario", 1, 4};
    static constexpr int kPaso = 4;
    /// The number at a place, counted from 0.
    [[nodiscard]] static constexpr Tramo Catalogo(int lugar) { return {u"catalogo", kPaso * lugar + 1, 3}; }
};

/// All that an installation needs of them.
[[nodiscard]] const QList<Catalogado>& CatalogosDelFormulario();

} // namespace xa518
