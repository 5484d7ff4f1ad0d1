#pragma once

#include "family/DeclarationKey.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace xa518 {

class Base;

/// A sent copy of a declaration, as its head tells of it.
struct CopiaEnviada {
    ClaveDeclaracion clave;
    QString fecha; ///< of the sending, `dd/mm/yyyy`
    QString control;

    /// "copia 3, enviada el 02/11/2026", for the sentences that speak of it.
    [[nodiscard]] QString Texto() const;
};

/// The copy by which the month of a declaration was sent last; nothing when it never was.
[[nodiscard]] std::optional<CopiaEnviada> UltimaCopia(Base& base, const ClaveDeclaracion& clave);

/// The copy whose key that is; nothing when it isn't there any more.
[[nodiscard]] std::optional<CopiaEnviada> LaCopia(Base& base, const ClaveDeclaracion& enviada);

/// How a module is told to begin a declaration that rectifies that copy, and how it reads that: nothing when it isn't
/// told so. Raises `Error` (`ArgumentoInvalido`) for what doesn't read as a copy of its form.
[[nodiscard]] QStringList ArgumentosParaRectificar(const ClaveDeclaracion& enviada);
[[nodiscard]] std::optional<ClaveDeclaracion> CopiaPorRectificar(const QStringList& argumentos,
                                                                 const QString& formulario);

} // namespace xa518
