#pragma once

#include "family/DeclarationKey.h"
#include "form518/UnsavedDeclaration.h"

#include <optional>

namespace xa518 {

/// How the declaration form opens: a new declaration, a registered one to be modified, or the view of a sent copy,
/// where only the order number can be registered.
enum class ModoDeclaracion { Nueva, Modificar, Ver };

/// The declaration that was picked from a list, with what its row shows of it.
struct DeclaracionElegida {
    ClaveDeclaracion clave;
    QString nombre;    ///< of the declarant
    QString norden{};  ///< of a sent copy: "0" before the administration gave one
    QString control{}; ///< of a sent copy: the control number of the sending
    /// Why it may only be looked at: another seat has it, or the account may not write. Empty when it may be changed.
    QString soloSeMira{};
    /// It wasn't saved and is taken up again: its detail stands in the work tables, and this is what was typed.
    std::optional<SinGrabar> retomada{};

    [[nodiscard]] ModoDeclaracion Modo() const {
        if (retomada && retomada->nueva)
            return ModoDeclaracion::Nueva;
        return clave.enviada ? ModoDeclaracion::Ver : ModoDeclaracion::Modificar;
    }
};

} // namespace xa518
