#pragma once

#include "values/Period.h"
#include "values/Ruc.h"

#include <QString>
#include <QVariantList>

namespace xa518 {

/// What identifies a declaration: declarant, period and form, and for a sent one the number of the copy.
/// It knows its own tables and its own condition.
struct ClaveDeclaracion {
    Ruc ruc;
    Periodo periodo;
    QString formulario;
    bool enviada = false;
    QString correl{}; ///< only of a sent copy

    /// The name of a table of the declaration: itself, or its "H" twin when the declaration is a sent copy.
    [[nodiscard]] QString Tabla(const QString& registrada) const;

    /// "WHERE TIP_DOC_D=6 AND DOC_ID_D=? ..." with `correl` for a sent copy.
    [[nodiscard]] QString Condicion() const;
    /// The same without `TIP_DOC_D`: the queries of the boxes and of the payment vouchers don't name it:
    /// wanted, rows under another type of that number are found too.
    [[nodiscard]] QString CondicionSinTipo() const;
    /// The values for either condition.
    [[nodiscard]] QVariantList Valores() const;
};

} // namespace xa518
