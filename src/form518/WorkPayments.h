#pragma once

#include "form518/WorkVouchers.h"

namespace xa518 {

/// A payment voucher behind a perception voucher.
struct ClavePago {
    ClaveComprobante comprobante; ///< its `tipCp` doesn't count: a cash sale has no payment vouchers
    QString tipo;                 ///< two digits; "07" is a credit note
    QString serie;
    QString numero;
};

struct ComprobanteDePago {
    ClavePago clave;
    QString fecha;
    MontoEscrito monto;
};

/// The columns of the query over a voucher's payment vouchers.
enum class ColumnaPago { Descripcion, Serie, Numero, Fecha, Tipo, Monto };

/// The payment vouchers of the open declaration, each by itself; many at once are `AltasTrabajo`'s.
class PagosTrabajo {
  public:
    explicit PagosTrabajo(Base& base);

    /// The payment vouchers of an ordinary voucher, in the order in which they were entered.
    [[nodiscard]] static ConsultaDeLista SqlDeComprobante(const ClaveComprobante& comprobante);
    /// What the grid of a cash sale runs instead: it finds nothing.
    [[nodiscard]] static QString SqlDeNinguno();

    [[nodiscard]] bool Existe(const ClavePago& clave) const;
    /// A row whose key stands there already raises `ErrorBase` (`ClaveDuplicada`).
    void Agrega(const ClavePago& clave, const QString& fecha, const MontoEscrito& monto);
    /// Nothing is written when the row is gone.
    void Modifica(const ClavePago& clave, const QString& fecha, const MontoEscrito& monto);

    /// One transaction.
    void Borra(const ClavePago& clave);
    /// Removes all that hang on a voucher.
    void BorraDe(const ClaveComprobante& comprobante);

    /// None of them is anything but a credit note; also true when there are none.
    [[nodiscard]] bool SoloNotasDeCredito(const ClaveComprobante& comprobante) const;

  private:
    using enum DatoPago;

    Base* m_base;
    const Tabla* m_tabla;
    LugaresDe<DatoPago> m_lugar;
};

} // namespace xa518
