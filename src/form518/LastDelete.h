#pragma once

#include "form518/WorkPayments.h"
#include "values/Message.h"

#include <optional>

namespace xa518 {

struct TablaDeTrabajo;

/// The last delete by hand in the open declaration: one level. Its rows are kept beside the work tables, with all that
/// hung on them, until the next delete, or until the work tables are emptied.
class UltimoBorrado {
  public:
    explicit UltimoBorrado(Base& base) : m_base(&base) {}

    // Before the rows go, within the transaction in which they do.

    void Guarda(const ClaveCliente& cliente);
    void Guarda(const ClaveComprobante& clave);
    void Guarda(const ClavePago& clave);
    /// A row that goes since the last of what hung on it was deleted: it comes back together with that.
    void GuardaTambien(const ClaveCliente& cliente);
    void GuardaTambien(const ClaveComprobante& clave);

    /// What was deleted, by its uppermost row; nothing when there is nothing to bring back.
    enum class Clase { Cliente, Comprobante, Pago };
    struct Borrado {
        Clase clase = Clase::Cliente;
        ClaveComprobante clave; ///< of a client only that; of a payment voucher the voucher that it hung on
    };
    [[nodiscard]] std::optional<Borrado> Que() const;

    /// What becomes of a wish to bring it back.
    struct Vuelta {
        bool hecha = false;
        std::optional<Mensaje> motivo{}; ///< of a refusal; none when nothing had been deleted
    };
    /// For a list of rows of that kind, those under `bajo` where they hang on something: puts it back if it belongs
    /// there, and otherwise tells where it does.
    [[nodiscard]] Vuelta DevuelveEn(Clase clase, const ClaveComprobante& bajo = {});

    /// Puts the rows back in their place; one transaction. Raises `ErrorBase` (`ClaveDuplicada`), and puts none back,
    /// when one of them was entered again meanwhile.
    void Devuelve();
    /// There is nothing to bring back any more.
    void Olvida();

  private:
    void Copia(const TablaDeTrabajo& tabla, const QString& condicion, const QVariantList& valores);

    Base* m_base;
};

} // namespace xa518
