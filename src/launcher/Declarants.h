#pragma once

#include "values/Message.h"
#include "values/Ruc.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace xa518 {

class Base;
struct Firma;

/// A taxpayer whose declarations are kept, and the user who owns him.
struct Declarante {
    Ruc ruc;
    QString nombre;
    QString usuario;
};

/// What a refusal of a declarant names.
enum class CampoDeclarante { Ruc, Nombre, Usuario };
using VeredictoDeclarante = VeredictoDe<CampoDeclarante>;

/// The register of declarants, table `CONT`. Each change is noted.
class Declarantes {
  public:
    explicit Declarantes(Base& base) : m_base(&base) {}

    /// Ordered by number.
    [[nodiscard]] QList<Declarante> Lista() const;
    [[nodiscard]] std::optional<Declarante> Busca(const Ruc& ruc) const;
    /// The users that the base knows: those with a kind of their own, and the owners of declarants.
    [[nodiscard]] QStringList Usuarios() const;

    /// The numbers of the declarants that the modules offer to a user.
    [[nodiscard]] QStringList QueVe(const QString& usuario) const;

    /// Adds the declarant, or changes the name and the owner of one who is there; an empty `usuario` leaves the owner.
    /// A number of the old form, eight digits, may be registered: only its declarations can't be saved.
    [[nodiscard]] VeredictoDeclarante Registra(Declarante declarante, const Firma& firma);

    /// Adds one who isn't there yet.
    [[nodiscard]] VeredictoDeclarante Agrega(Declarante declarante, const Firma& firma);
    /// Changes the name and the owner of one who is there.
    [[nodiscard]] VeredictoDeclarante Modifica(Declarante declarante, const Firma& firma);

    /// Refused while he has declarations, registered or sent: without his row they could be neither seen nor printed.
    /// Raises `TrabajoAjeno` while another program has a declaration open: it may be one of his, not saved yet.
    [[nodiscard]] VeredictoDeclarante Elimina(const Ruc& ruc, const Firma& firma);

  private:
    /// Which of the two ways of writing a declarant is meant, and what the owner may be.
    enum class Modo { Cualquiera, Nuevo, Existente };
    [[nodiscard]] VeredictoDeclarante Escribe(Declarante declarante, Modo modo, const Firma& firma);
    [[nodiscard]] bool TieneDeclaraciones(const Ruc& ruc) const;
    [[nodiscard]] QString Anota(const Firma& firma, const Ruc& ruc, const std::optional<Declarante>& antes,
                                const std::optional<Declarante>& despues);

    Base* m_base;
};

} // namespace xa518
