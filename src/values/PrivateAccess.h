#pragma once

class QFileDevice;
class QString;

namespace xa518 {

/// Lets nobody but its owner do anything with the file or the folder: by its permissions, or on Windows by an access
/// list of its own, which takes nothing over from the folder above, hands itself on to what is made in a folder, and
/// leaves the system and its administrators their rights. False when the system refuses; a Windows disk that keeps no
/// such lists has nothing to refuse.
[[nodiscard]] bool HazPrivado(const QString& ruta);

/// The same for an open file, whatever its name is until it is done.
[[nodiscard]] bool HazPrivado(QFileDevice& archivo);

} // namespace xa518
