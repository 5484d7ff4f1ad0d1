#pragma once

#include "family/FormDescription.h"

#include <QString>

#include <functional>

namespace xa518 {

class Base;
class Registro;
struct ClaveDeclaracion;
struct Firma;

/// The two tables that every form has: the head of a declaration and its boxes.
inline const TablaDeDeclaracion kTablaCabecera{
    .nombre = QStringLiteral("CAB"), .numericas = 5, .numericasEnviada = 6, .turnoAlEliminar = 2};
inline const TablaDeDeclaracion kTablaCasillas{
    .nombre = QStringLiteral("DET"), .numericas = 6, .numericasEnviada = 6, .turnoAlEliminar = 1};

/// Writes the head of a registered declaration: `llena` puts what the form tells into the stored row, or into a new one
/// that has the key.
void GrabaCabecera(Base& base, const ClaveDeclaracion& clave, const std::function<void(Registro&)>& llena);

/// A box as table `DET` keeps it.
struct CasillaGuardada {
    QString casilla;
    QString valor;
};

/// Writes one box of a registered declaration, adding its row or editing it. An empty value, or a declaration without
/// declarant, writes nothing.
void GrabaCasilla(Base& base, const ReglaDeCasillas& regla, const ClaveDeclaracion& clave, const CasillaGuardada& una);

/// The boxes of a declaration, in the order of their numbers.
[[nodiscard]] QList<CasillaGuardada> CasillasGuardadas(Base& base, const ClaveDeclaracion& clave);

/// The number of the copy by which the declarant's month was sent last; empty when it never was.
[[nodiscard]] QString UltimaCopiaEnviada(Base& base, const ClaveDeclaracion& clave);

/// Deletes a declaration of that form, registered or sent as the key says, in one transaction, and notes it.
void EliminaDeclaracion(Base& base, const Formulario& formulario, const ClaveDeclaracion& clave, const Firma& firma);

} // namespace xa518
