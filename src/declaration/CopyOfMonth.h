#pragma once

#include "declaration/Declaration.h"
#include "family/SentCopies.h"
#include "form518/Comparison.h"
#include "values/Message.h"

#include <functional>
#include <optional>

class QWidget;

namespace xa518 {

class Avisos;
class Base;
class PagDeuda;
class PagIdentificacion;
struct Proceso;

/// What of a declaration's form a copy is shown in, and the command that compares with it.
struct ControlesDeCopia {
    PagIdentificacion& identificacion;
    PagDeuda& deuda;
    QWidget& orden;
};

/// What was sent earlier of the month that a declaration's form shows: offered to a new declaration to begin with,
/// compared with, and a reason to ask before the month gets a second original.
class CopiaDelMes {
  public:
    /// The command shows where there is a copy.
    CopiaDelMes(Avisos& avisos, const ControlesDeCopia& controles);

    /// Looks up the last copy of the month; one that was asked for goes before it. Raises `ErrorBase`.
    void Busca(Base& base, const ClaveDeclaracion& clave);
    /// Chooses declarant and month of a copy in a new declaration, as if they had been typed; that copy is meant then,
    /// whatever was sent of its month later.
    void Rectifica(const ClaveDeclaracion& enviada);

    /// Asks, once for each month, whether a new declaration is to begin with the copy. Not any more once its key is
    /// fixed.
    [[nodiscard]] bool Ofrece(Base& base, const ClaveDeclaracion& clave);

    /// Fixes the key and fills the work tables with the copy, beside the window's thread. Then shows its boxes and its
    /// payment as those of a declaration that rectifies it.
    void Trae(QWidget& ventana, const Proceso& proceso, const std::function<void()>& alTraer);

    /// Whether the declaration may be saved: one more original of a month only after a question, asked once.
    [[nodiscard]] bool AdmiteGrabar(Base& base, const Declaracion& declaracion);

    /// The comparison of the open declaration with the copy; there must be one.
    [[nodiscard]] PedidoDeComparacion Pedido(const Declaracion& abierta, const QString& nombre) const;

  private:
    void Muestra(const Declaracion& copia) const;

    Avisos* m_avisos;
    ControlesDeCopia m_controles;
    std::optional<CopiaEnviada> m_copia;
    std::optional<ClaveDeclaracion> m_preferida;
    QString m_ofrecida; ///< the month about which was asked last
    bool m_otroOriginal = false;
};

/// What whoever chooses to rectify is told.
[[nodiscard]] Mensaje RecordatorioDeRectificar();

} // namespace xa518
