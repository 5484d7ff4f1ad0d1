#pragma once

#include <QString>

namespace xa518 {

class Base;
class Registro;

/// The six digits that the tax administration receives as `cNumero` with each row. The first `primeros` fields are
/// summed as numbers, the others but the last by character code times position; three digits of each sum.
/// Raises `Desbordamiento` when a code times its position passes 32767 (from position 129 on it can).
[[nodiscard]] QString ChecksumRegistro(const Registro& registro, int primeros);

/// Puts the checksum in the row's last column, `cNumero`, once all others are in place.
void PonChecksum(Registro& registro, int primeros);

/// Puts the checksum and adds the row.
void AgregaConChecksum(Base& base, Registro& registro, int primeros);

} // namespace xa518
