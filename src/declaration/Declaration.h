#pragma once

#include "declaration/Boxes.h"
#include "family/DeclarationKey.h"

#include <QString>

#include <optional>

namespace xa518 {

enum class FormaDePago { SinElegir, Efectivo, Cheque };

/// The letter of the payment control and of boxes 999 and 599: "E" cash, "C" cheque, "X" no choice yet.
[[nodiscard]] QString Letra(FormaDePago forma);
/// Any other letter is no choice.
[[nodiscard]] FormaDePago FormaDeLetra(QStringView letra);

/// Whether a declaration rectifies or takes the place of another one.
enum class Rectificacion { SinResponder, No, Si };

/// The digit of the head and of boxes 871 and 005: "1" yes, "0" no, empty when unanswered.
[[nodiscard]] QString Digito(Rectificacion rectifica);
/// Any other text is no answer.
[[nodiscard]] Rectificacion RectificacionDe(QStringView digito);

/// The way of payment as the payment control hands it out; its texts come trimmed.
struct Pago {
    FormaDePago forma = FormaDePago::SinElegir;
    QString banco{}; ///< code; empty or "XX" when none
    QString numeroCheque{};
    QString importe{}; ///< `ImportePagar`, follows box 410

    [[nodiscard]] bool EsEfectivo() const { return forma == FormaDePago::Efectivo; }
    [[nodiscard]] bool EsCheque() const { return forma == FormaDePago::Cheque; }
    [[nodiscard]] bool ConBanco() const { return !banco.isEmpty() && banco != u"XX"; }
};

/// A declaration between load and save. The form edits it, the batch tool fills it, the rules read it, the save
/// writes it; its detail lies in the work tables.
struct Declaracion {
    ClaveDeclaracion clave;
    Montos montos;
    Pago pago;
    Rectificacion rectifica = Rectificacion::SinResponder;
    /// `TxtBase` and `TxtPercepcion`: totals of the amounts charged and of the perceptions; nothing shows nothing, and
    /// is saved so.
    std::optional<Importe> base;
    std::optional<Importe> percepcion;
    int clientes = 0; ///< rows of the client grid
};

} // namespace xa518
