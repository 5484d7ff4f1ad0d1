#pragma once

#include "family/DeclarationKey.h"
#include "values/Message.h"

#include <QString>

namespace xa518 {

class Base;

/// How a declaration stood in the tables at a moment, to tell later whether anybody has changed, sent or deleted it
/// since: by another program of the family, which leaves an entry in the log, or past all of them.
class EstadoGuardado {
  public:
    /// Of one that isn't there.
    EstadoGuardado() = default;
    [[nodiscard]] static EstadoGuardado De(Base& base, const ClaveDeclaracion& clave);

    /// As one text, and from it.
    [[nodiscard]] QString Texto() const;
    [[nodiscard]] static EstadoGuardado DeTexto(const QString& texto);

    [[nodiscard]] bool Existe() const { return !m_suma.isNull(); }
    [[nodiscard]] bool MismaMarca(const EstadoGuardado& otro) const { return m_marca == otro.m_marca; }
    bool operator==(const EstadoGuardado&) const = default;

  private:
    QString m_suma{};  ///< the checksum of the head; null without one
    QString m_marca{}; ///< of the last entry
};

/// Refuses, with what has happened and by whom, when the declaration doesn't stand any more as it did. Within the
/// transaction that is to write it.
[[nodiscard]] Veredicto ExigeSinCambios(Base& base, const ClaveDeclaracion& clave, const EstadoGuardado& conocido);

} // namespace xa518
