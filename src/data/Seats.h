#pragma once

#include "data/BasePlace.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QVariantList>

#include <optional>

namespace xa518 {

class Base;

/// Who works at a seat.
struct Ocupante {
    QString usuario;
    QString equipo; ///< the machine's name
    QString programa;
};

/// A declaration as the seats know it: its key as the tables keep it.
struct DeclaracionOcupada {
    QString ruc;
    QString periodo;
    QString formulario;
    QString correl{}; ///< only of a sent copy

    bool operator==(const DeclaracionOcupada&) const = default;
};

/// A seat as the server lists it.
struct Puesto {
    QString esquema; ///< of its work tables
    Ocupante quien;
    QDateTime desde;
    bool vivo = false;   ///< a program is in it
    bool propio = false; ///< that of this connection
    DeclaracionOcupada abierta;
    QDateTime abiertaDesde;
    QDateTime ahora; ///< by the server's clock, as all times of the seats
    QString estado;  ///< how what is open stood when it was opened, in the words of who opened it

    [[nodiscard]] bool TieneAbierta() const { return !abierta.ruc.isEmpty(); }
};

/// The seats of a base on a server, seen from one connection: each has work tables of its own, is taken while its
/// connection lives, and keeps its rows after a crash. A connection may have one, and takes declarations, each of which
/// only one connection has. All raise `ErrorBase`.
class Puestos {
  public:
    explicit Puestos(Base& base) : m_base(&base) {}

    /// Takes a seat for this connection, first of all one that the same user's program left on that machine, and
    /// returns it with what was open there.
    [[nodiscard]] Puesto Toma(const Ocupante& quien);
    [[nodiscard]] QList<Puesto> Lista() const;
    /// Clears a seat with its rows; false while a program is in it, or when it is gone.
    [[nodiscard]] bool Quita(const QString& esquema);

    /// Takes a declaration until it is let go or the connection ends; false while another connection has it. The seat
    /// tells of it.
    [[nodiscard]] bool Ocupa(const DeclaracionOcupada& cual);
    /// The seat tells how it stood when it was opened.
    void Anota(const DeclaracionOcupada& cual, const QString& estado);
    void Libera(const DeclaracionOcupada& cual) noexcept;
    /// The seat of another connection that has it open.
    [[nodiscard]] std::optional<Puesto> QuienTiene(const DeclaracionOcupada& cual) const;

    /// Lets everything go at once, before the connection ends by and by.
    void Deja() noexcept;
    /// Takes anew the seat of a lost connection, which the server knew as `suPid`; false when it isn't its own any
    /// more.
    [[nodiscard]] bool Retoma(int suPid) const;
    /// Takes anew the declarations that it had; raises when another connection has one meanwhile.
    void RetomaOcupadas();

  private:
    [[nodiscard]] bool Pide(const QString& sql, const QVariantList& valores) const;

    Base* m_base;
    std::optional<EsquemaDeTrabajo> m_puesto;
    QList<DeclaracionOcupada> m_ocupadas;
    QString m_estado;
};

} // namespace xa518
