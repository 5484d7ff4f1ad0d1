#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace xa518 {

/// Where a value stands in a text of fixed columns; positions count from 1.
struct Tramo {
    QStringView columna; ///< its name in the readable file
    int inicio = 1;
    int ancho = 0;

    /// The value, blanks and all.
    [[nodiscard]] QStringView Corta(QStringView texto) const;
    /// The same for a query: "mid(FUNCION,32,11)".
    [[nodiscard]] QString Sql(QStringView campo) const;
};

/// A text of fixed columns: its constant parts, and the pieces that a row's values fill.
struct Plantilla {
    QString base;
    QList<Tramo> tramos;

    /// Puts the values in their places; blanks fill what is left. Raises `Error` (`ArgumentoInvalido`) for a value
    /// wider than its place: it must not run into its neighbour.
    [[nodiscard]] QString Compone(const QHash<QString, QString>& valores) const;
    [[nodiscard]] QStringList Columnas() const;
};

/// How a readable file of the catalogue becomes rows of `PARAM`. Each file also has the column `correl`, which goes to
/// `correl_param`.
struct Catalogado {
    QString archivo;
    QString numero;
    Plantilla argumento; ///< trailing blanks are cut: the codes are looked up as bare texts
    Plantilla funcion;
};

// The catalogues that every form reads: what composes a row and what cuts it take its columns from here.

/// "044", document types. Columns 49 to 54 and those from 59 on are flags, one for each form or use.
struct TramosDocumento {
    static constexpr Tramo kDescripcion{u"descripcion", 1, 30};
    static constexpr Tramo kCorto{u"corto", 32, 11};
    static constexpr Tramo kLargo{u"largo", 46, 2};
    static constexpr Tramo kOrden{u"orden", 56, 2};
    static constexpr Tramo kTipoDato{u"tipo_dato", 128, 1};
    static constexpr Tramo kTipoLongitud{u"tipo_longitud", 130, 1};
};

/// "004", banks: the code is the argument's.
struct TramosBanco {
    static constexpr Tramo kCodigo{u"codigo", 1, 2};
    static constexpr Tramo kNombre{u"nombre", 1, 36};
};

/// "830", argument "01": the first period with the sales tax of today.
struct TramosPrimerPeriodo {
    static constexpr Tramo kPeriodo{u"periodo", 1, 6};
};

/// "998", sales tax: kind of row and first month are the argument's, whose character 7 is read by nobody.
struct TramosImpuesto {
    static constexpr Tramo kClase{u"clase", 1, 6};
    static constexpr Tramo kDesde{u"desde", 8, 6};
    static constexpr Tramo kTasa{u"tasa", 2, 6};
};

/// Those of them that are nobody's own in any column, as they are installed.
[[nodiscard]] const QList<Catalogado>& CatalogosComunes();

} // namespace xa518
