#pragma once

#include "values/Message.h"

#include <QString>

namespace xa518 {

class Avisos;
class Error;
class InstanciaUnica;
class VentanasDelSistema;
struct Formulario;

/// The title of the launcher's main window, by which the module finds it.
inline const QString kTituloIntegrador = QStringLiteral("Consola Orvel de Presentaciones");

/// The first steps of a start: the launcher's window is there, then no other process of the same executable runs. On a
/// refusal it shows why and returns false: the process ends. In this order, so that without the launcher its message
/// comes first even at a second start.
[[nodiscard]] bool PuedeArrancar(VentanasDelSistema& ventanas, InstanciaUnica& instancia, Avisos& avisos);

/// What is told when the database can't be opened.
[[nodiscard]] Mensaje MensajeDeConexion(const Error& falla);

/// What is told of an open base whose file lies on another machine; nothing of any other.
[[nodiscard]] std::optional<Mensaje> AvisoDeRed(const QString& rutaBase);

/// The name of a form's help file below the installation folder.
[[nodiscard]] QString RutaAyuda(const QString& sysPath, const Formulario& formulario);

} // namespace xa518
