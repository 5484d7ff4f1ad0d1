#pragma once

#include "values/Message.h"

#include <QString>

namespace xa518 {

class Correccion;
struct DesenlaceDeCorreccion;
struct FallaDeLinea;
struct FormatoImportacion;

// What the dialog that puts refused lines right tells.

/// "0859: …", or the reason alone of a line that bars its file.
[[nodiscard]] QString TextoDeFalla(const FallaDeLinea& falla);

// The choices of which lines show, each with its count.
[[nodiscard]] QString TextoDeRechazadas(int lineas);
[[nodiscard]] QString TextoDeGrupo(const FallaDeLinea& falla, const FormatoImportacion& formato, int lineas);
[[nodiscard]] QString TextoDeLasQuePasan(int lineas);

/// Which line it is, and what is wrong with it.
[[nodiscard]] QString ExplicaLinea(const Correccion& correccion, int cual);
/// What a field may hold; `campo` counts from 0, and what lies outside of the format's gets no explanation.
[[nodiscard]] QString ExplicaCampo(const FormatoImportacion& formato, int campo);

[[nodiscard]] QString ResumeDesenlace(const DesenlaceDeCorreccion& desenlace, bool prueba);

[[nodiscard]] Mensaje PreguntaPorAplicar(const QString& valor, int campo, const FormatoImportacion& formato,
                                         int lineas);
[[nodiscard]] Mensaje PreguntaPorReemplazar(const QString& ruta, const Correccion& correccion);
[[nodiscard]] Mensaje PreguntaPorPerder(int lineas);

} // namespace xa518
