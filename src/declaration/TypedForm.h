#pragma once

#include "declaration/Declaration.h"

#include <QString>

#include <optional>

namespace xa518 {

/// What a person has typed in the form of a declaration, for one that isn't saved: what no table has yet.
struct LoEscrito {
    QString periodo; ///< as its field shows it, maybe half of it
    bool claveFija = false;
    Montos montos;
    Pago pago; ///< its amount follows the boxes
    Rectificacion rectifica = Rectificacion::SinResponder;
    int pestania = 0;

    [[nodiscard]] QString EnJson() const;
    /// Nothing for a text that isn't whole.
    [[nodiscard]] static std::optional<LoEscrito> DeJson(const QString& json);
};

} // namespace xa518
