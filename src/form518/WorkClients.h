#pragma once

#include <QString>

namespace xa518 {

class Base;

/// A client of the open declaration, as the work tables tell it from the others.
struct ClaveCliente {
    int tipoDoc = 0; ///< 0 when no document type is chosen: no row has it
    QString numero;
};

/// How a client is called: a company by one name, a person by three.
struct NombresCliente {
    bool empresa = false;
    QString razon;
    QString apellidoP;
    QString apellidoM;
    QString nombres;
};

/// What a client's row keeps of its vouchers, as the row has it.
struct TotalesCliente {
    QString ctdDocs;
    QString base;
    QString percepcion;
};

/// The clients of the open declaration, for the dialog that edits one by hand.
class ClientesTrabajo {
  public:
    explicit ClientesTrabajo(Base& base) : m_base(&base) {}

    [[nodiscard]] bool Existe(const ClaveCliente& cliente) const;

    /// Of a company only its name is written; a person's row takes one blank in its place. Wanted: the save builds both
    /// anew from the columns of their kind.
    void Agrega(const ClaveCliente& cliente, const NombresCliente& nombres, const TotalesCliente& totales);
    /// Nothing is written when the row is gone.
    void Modifica(const ClaveCliente& cliente, const NombresCliente& nombres, const TotalesCliente& totales);
    void EscribeTotales(const ClaveCliente& cliente, const TotalesCliente& totales);

    /// Removes the client's row alone, for a client that has no vouchers left.
    void Borra(const ClaveCliente& cliente);

    /// Removes the vouchers entered for a client that was never stored. Wanted: their payment vouchers stay, an entry
    /// under the same keys finds them again.
    void BarreSinCliente(const ClaveCliente& cliente);

    struct Sumas {
        QString base; ///< empty when the client has no vouchers
        QString percepcion;
    };
    /// Sums over the client's vouchers, negative ones as 0.
    [[nodiscard]] Sumas SumaComprobantes(const ClaveCliente& cliente) const;

  private:
    Base* m_base;
};

} // namespace xa518
