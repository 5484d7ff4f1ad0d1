#pragma once

#include "data/Base.h"
#include "data/DeclarationKey.h"
#include "reports/PrintedClient.h"

#include <QString>

namespace xa518 {

/// A perception voucher, or a cash sale: that one has a type and no payment vouchers.
struct ComprobanteImpreso {
    QString serie;
    QString numero;
    QString fecha;
    QString base;
    QString tasa;
    QString percepcion;
    QString creditoFiscal; ///< "1", "0" or another for no answer; so are the next two
    QString listaClientes;
    QString medioPago;
    QString tipo;
};

struct PagoImpreso {
    QString tipo;
    QString serie;
    QString numero;
    QString fecha;
    QString monto;
};

/// The rows of one table in the order of the annex, each telling the row of another table that it hangs on.
/// It is read once, in step with the parents, so that a report's memory doesn't grow with its length.
class FilasHijas {
  public:
    FilasHijas(Base& base, const QString& sql, const QVariantList& valores);

    /// Moves to the parent's next row, at first to its first one. Columns 0 and 1 are the parent and the row itself.
    [[nodiscard]] bool Siguiente(qint64 padre);
    [[nodiscard]] const Registros& Fila() const { return m_filas; }
    [[nodiscard]] qint64 Propia() const { return m_filas.Entero(1); }

  private:
    Registros m_filas;
    bool m_hay;
    bool m_entregada = false;
};

/// A declaration's clients by number, their vouchers and cash sales, and the payment vouchers of the first, all in the
/// order in which they were entered.
class FilasAnexo {
  public:
    FilasAnexo(Base& base, const ClaveDeclaracion& clave);

    [[nodiscard]] bool SiguienteCliente();
    [[nodiscard]] const ClienteImpreso& Cliente() const { return m_cliente; }

    /// Of the client at hand.
    [[nodiscard]] bool SiguienteComprobante() { return m_comprobantes.Siguiente(m_filaCliente); }
    [[nodiscard]] ComprobanteImpreso Comprobante() const;
    /// Of the voucher at hand.
    [[nodiscard]] bool SiguientePago() { return m_pagos.Siguiente(m_comprobantes.Propia()); }
    [[nodiscard]] PagoImpreso Pago() const;
    /// Of the client at hand.
    [[nodiscard]] bool SiguienteContado() { return m_contados.Siguiente(m_filaCliente); }
    [[nodiscard]] ComprobanteImpreso Contado() const;

  private:
    Registros m_clientes;
    FilasHijas m_comprobantes;
    FilasHijas m_pagos;
    FilasHijas m_contados;
    ClienteImpreso m_cliente;
    qint64 m_filaCliente = 0;
};

} // namespace xa518
