#pragma once

#include "family/DeclarationKey.h"
#include "values/Message.h"

#include <QDate>
#include <QString>

#include <optional>

namespace xa518 {

class Base;

/// The fields of the declaration form that a rule may name.
enum class CampoDeclaracion { Ruc, Periodo, NumeroDeOrden };
using VeredictoDeclaracion = VeredictoDe<CampoDeclaracion>;

/// What the identification page holds when its rules run.
struct Identificacion {
    bool nueva = true; ///< a new declaration, whose key may still change
    Ruc ruc;
    QString mostrado;              ///< text of the period field, "mm/yyyy" with "_" where nothing was typed
    bool periodoHabilitado = true; ///< false once the key is frozen
};

/// The period is complete, from 01/2005 to the current month, and its month exists. An unfinished one gets no verdict.
[[nodiscard]] std::optional<VeredictoDeclaracion> ValidaPeriodo(const QString& mostrado, const QDate& hoy);

/// The head of that declaration stands: among the registered ones, where no sent copy counts, or that very copy.
[[nodiscard]] bool ExisteDeclaracion(Base& base, const ClaveDeclaracion& clave);

/// Refuses the period of a declaration that exists already.
[[nodiscard]] VeredictoDeclaracion RechazaDuplicada(Base& base, const ClaveDeclaracion& clave);

/// The identification allows the work to go on: declarant, period, no duplicate. No verdict while the period is still
/// to be finished.
[[nodiscard]] std::optional<VeredictoDeclaracion> ValidaContForm1(Base& base, const Identificacion& identificacion,
                                                                  const QDate& hoy);

/// What a change of page asks first of a new declaration: a declarant and a whole period. The other wording of the same
/// faults is `ValidaContForm1`'s. Wanted, both: each is known by where it is said.
[[nodiscard]] VeredictoDeclaracion ValidaClaveElegida(const Identificacion& identificacion);

/// A declarant with a RUC of the old form, eight characters, can be chosen but not saved. By length alone: wanted,
/// its digits were looked at when it was registered.
[[nodiscard]] VeredictoDeclaracion RechazaRucDeOcho(const Ruc& ruc);

} // namespace xa518
