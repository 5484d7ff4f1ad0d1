#pragma once

#include "declaration/Boxes.h"
#include "family/DeclarationKey.h"

#include <QString>

namespace xa518 {

/// The way of payment as the payment control hands it out; its texts come trimmed.
struct Pago {
    QString forma = QStringLiteral("X"); ///< "E" cash, "C" cheque, "X" no choice yet
    QString banco;                       ///< code; empty or "XX" when none
    QString numeroCheque;
    QString importe; ///< `ImportePagar`, follows box 410

    [[nodiscard]] bool EsEfectivo() const { return forma == u"E"; }
    [[nodiscard]] bool EsCheque() const { return forma == u"C"; }
    [[nodiscard]] bool ConBanco() const { return !banco.isEmpty() && banco != u"XX"; }
};

/// A declaration between load and save. The form edits it, the batch tool fills it, the rules read it, the save
/// writes it; its detail lies in the work tables.
struct Declaracion {
    ClaveDeclaracion clave;
    Montos montos;
    Pago pago;
    QString rectifica;  ///< "1" rectifies another one, "0" doesn't, empty when unanswered
    QString base;       ///< `TxtBase`: total of the amounts charged, as shown
    QString percepcion; ///< `TxtPercepcion`: total of the perceptions, as shown
    int clientes = 0;   ///< rows of the client grid
};

} // namespace xa518
