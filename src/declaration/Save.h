#pragma once

#include "declaration/Declaration.h"
#include "family/ChangeLog.h"
#include "family/StoredDeclaration.h"
#include "family/StoredState.h"
#include "values/Message.h"

#include <QList>

namespace xa518 {

class Base;

/// What a save did and what the user is told after it, in this order. All of it is read before the save is confirmed:
/// a connection that breaks right behind that takes nothing from it.
struct ResultadoGrabacion {
    Veredicto veredicto = Veredicto::Bien(); ///< refused, nothing was written and nothing of what follows is told
    int estado = 0;                          ///< 0 clean; 9 with inconsistencies, so that it can't be sent
    QList<Mensaje> mensajes{};
    EstadoGuardado guardado{}; ///< how the declaration stands now
    QList<CasillaGuardada> casillas{};
};

/// Makes the declaration permanent: head, boxes with their control sum, and the detail out of the work tables, every
/// row with its checksum, and notes it. One transaction: a failure, raised as an `Error`, leaves what was stored
/// before. Refused when the declaration doesn't stand any more as it was known, `conocido`. The identification must
/// have passed `ValidaContForm1` and `RechazaRucDeOcho`.
[[nodiscard]] ResultadoGrabacion GrabaDeclaracion(Base& base, const Declaracion& declaracion,
                                                  const EstadoGuardado& conocido, const Firma& firma);

/// The control sum of box 722: of each catalogue that "981" lists for the form, its number times its running numbers.
[[nodiscard]] QString SumaDeControl(Base& base, const QString& formulario);

} // namespace xa518
