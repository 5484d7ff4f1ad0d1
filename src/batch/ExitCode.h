#pragma once

namespace xa518 {

/// Exit codes of the tools without a window.
inline constexpr int kSalidaBien = 0;            ///< done and clean
inline constexpr int kSalidaObservaciones = 1;   ///< done, with refused lines or inconsistencies
inline constexpr int kSalidaRechazado = 2;       ///< refused: nothing was written
inline constexpr int kSalidaFallo = 3;           ///< the database or a file failed
inline constexpr int kSalidaIncompleta = 4;      ///< done, but for a part that there was nothing or no place for
inline constexpr int kSalidaLineas = 5;          ///< all or nothing: nothing was saved, for refused lines
inline constexpr int kSalidaInconsistencias = 6; ///< all or nothing: saved, with inconsistencies
inline constexpr int kSalidaServidor = 10;       ///< from here on: what is wrong with the server of the base

} // namespace xa518
