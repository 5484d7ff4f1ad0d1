#pragma once

#include "values/Message.h"

#include <QList>
#include <QString>

#include <optional>

namespace xa518 {

class Base;

/// A taxpayer whose declarations are kept, and the user who owns him.
struct Declarante {
    QString ruc;
    QString nombre;
    QString usuario;
};

/// The register of declarants, table `CONT`.
class Declarantes {
  public:
    explicit Declarantes(Base& base) : m_base(&base) {}

    [[nodiscard]] QList<Declarante> Lista() const;
    [[nodiscard]] std::optional<Declarante> Busca(const QString& ruc) const;

    /// Adds the declarant, or changes the name and the owner of one who is there; an empty `usuario` leaves the owner.
    /// A number of the old form, eight digits, may be registered: only its declarations can't be saved.
    [[nodiscard]] Veredicto Registra(Declarante declarante);

    /// Refused while he has declarations, registered or sent: without his row they could be neither seen nor printed.
    [[nodiscard]] Veredicto Elimina(const QString& ruc);

  private:
    [[nodiscard]] bool TieneDeclaraciones(const QString& ruc) const;

    Base* m_base;
};

} // namespace xa518
