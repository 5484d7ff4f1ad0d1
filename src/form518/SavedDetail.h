#pragma once

#include "family/DeclarationKey.h"

#include <QString>

namespace xa518 {

class Base;

/// Rewrites the saved detail tables from the work tables. Part of the save, inside its transaction.
void GrabaDetalle(Base& base, const ClaveDeclaracion& clave);

/// Count, amounts charged and perceptions of a saved detail table; the payment vouchers have no perceptions.
struct SumasDetalle {
    QString cantidad;
    QString base;
    QString percepcion;
};
[[nodiscard]] SumasDetalle Get_Data(Base& base, const QString& tabla, const ClaveDeclaracion& clave);

} // namespace xa518
