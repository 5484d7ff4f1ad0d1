#pragma once

#include "detail/PerceptionRate.h"

#include "values/WrittenAmount.h"

#include <QString>
#include <QStringList>

namespace xa518 {

class Base;

// The lists of payment voucher types. An item is the two digits of its code, three blanks and forty characters.

/// `CargaTipoCP`: the types of a cash sale. A credit note can't be one.
[[nodiscard]] QStringList TiposDeContado(Base& base);

/// `CargaTipoDoc`: with tax credit (`lblTipo` "1" or "2", which act alike: wanted, both give it) only the four types
/// that give it, without it all but the invoice, the credit note included: wanted, it corrects any of the others.
[[nodiscard]] QStringList TiposDePago(Base& base, const QString& lblTipo);

/// The code of an item: its first two characters, trimmed.
[[nodiscard]] QString CodigoDeItem(QStringView item);
/// What describes an item: its last forty characters, trimmed.
[[nodiscard]] QString DescripcionDeItem(QStringView item);

/// How long the number of a voucher of that type may be.
[[nodiscard]] int LimiteDeNumero(QStringView tipo);

/// The answer about tax credit that the type of a cash sale gives by itself; nothing when the person answers.
[[nodiscard]] Contestacion CreditoDe(QStringView tipo);

/// The limits of a payment voucher's amount: a credit note has one digit less, for its sign.
struct MontoDePago {
    int limite;      ///< of the field
    int conPunto;    ///< of what can be typed
    int sinPunto;    ///< the same without a point
    QString mascara; ///< in which it is read
    QString tope;    ///< greater values become this one
};
[[nodiscard]] const MontoDePago& MontoDe(QStringView tipo);

/// The amount, cut to the most that its type allows.
[[nodiscard]] QString LimitaMontoDePago(QStringView tipo, const QString& monto);

/// The amount as it is stored. A credit note is typed positive and stored negative, through one mask when it is added
/// and another when it is edited: wanted, the checksum is taken over the letters.
[[nodiscard]] MontoEscrito MontoGuardado(QStringView tipo, const QString& monto, bool esAlta);

/// The stored amount as it is edited.
[[nodiscard]] QString MontoEditado(QStringView tipo, const MontoEscrito& guardado);

/// The stored amount as the grid shows it: anything but a positive value, zero too, prints in parentheses. Wanted: a
/// row that adds nothing stands out.
[[nodiscard]] QString MontoEnGrilla(const QString& guardado);

} // namespace xa518
