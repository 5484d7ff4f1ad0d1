#pragma once

#include "declaration/ChosenDeclaration.h"
#include "declaration/TypedForm.h"

class QTabWidget;

namespace xa518 {

class PagDeuda;
class PagIdentificacion;
class PagPercepcion;

enum Pestania { Identificaciones, Percepciones, Deuda };

/// The help topic of a page.
[[nodiscard]] int AyudaDe(int pestania);

/// The pages of a declaration's form, where something concerns them all.
struct PaginasDeDeclaracion {
    QTabWidget& fichas;
    PagIdentificacion& identificacion;
    PagPercepcion& percepcion;
    PagDeuda& deuda;

    /// What stands on them.
    [[nodiscard]] LoEscrito Lee() const;
    /// Shows it again; of a new declaration, also the key as far as it was given. No page is entered.
    void Pon(const LoEscrito& escrito, const DeclaracionElegida& elegida) const;
    /// A sent copy can only be looked at: its number apart, which is typed.
    void ComoEnviadas(const DeclaracionElegida& elegida) const;
    /// The order number of a sent copy as its head has it. Raises `ErrorBase`.
    void PonOrdenGuardado(Base& base, const ClaveDeclaracion& clave) const;
    /// Lets go of the work tables; a base that has gone must not keep the form open.
    void Suelta(Base& base) const;
    /// Of the page in front, in the order of Tab.
    void EnfocaPrimerCampo() const;
    /// Nothing of them may be changed.
    void ParaMirar() const;
};

} // namespace xa518
