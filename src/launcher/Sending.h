#pragma once

#include "data/DeclarationKey.h"
#include "values/Message.h"

#include <QString>

namespace xa518 {

class Base;
class Reloj;

/// The number of a sent copy and the control number of its sending, or why it can't be sent.
struct ResultadoEnvio {
    Veredicto veredicto;
    QString correl;
    QString control;
};

/// Sends a registered declaration: its rows move to the tables of the sent ones. Both ways raise `TrabajoAjeno` while
/// another program has a declaration open: it would be saved again as one more original.
class Envio {
  public:
    Envio(Base& base, const Reloj& reloj) : m_base(&base), m_reloj(&reloj) {}

    /// Refused when there is no such declaration, or when it was saved with inconsistencies.
    [[nodiscard]] Veredicto Valida(const ClaveDeclaracion& clave) const;

    /// One transaction, which asks the same once more.
    [[nodiscard]] ResultadoEnvio Envia(const ClaveDeclaracion& clave);

  private:
    [[nodiscard]] Veredicto Revisa(const ClaveDeclaracion& clave) const;

    Base* m_base;
    const Reloj* m_reloj;
};

} // namespace xa518
