#pragma once

#include "data/Base.h"
#include "data/DeclarationKey.h"
#include "reports/PrintedClient.h"

#include <QString>

#include <compare>

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

/// The rows of one table in the order of the annex, read once, in step with those that they hang on, so that a report's
/// memory doesn't grow with its length. It stands on a row from the start, if there is any.
class FilasEnPaso {
  public:
    FilasEnPaso(Base& base, const QString& sql, const QVariantList& valores);

    [[nodiscard]] bool Hay() const { return m_hay; }
    [[nodiscard]] const Registros& Fila() const { return m_filas; }
    void Avanza() { m_hay = m_filas.Siguiente(); }

    /// Whether the row at hand has been handed out; the next question moves on from it.
    bool entregada = false;

  private:
    Registros m_filas;
    bool m_hay;
};

/// A declaration's clients by number, their vouchers and cash sales, and the payment vouchers of the first, each kind in
/// the order in which it was entered. A voucher whose client is missing is passed over, as is a payment voucher without
/// its voucher.
class FilasAnexo {
  public:
    FilasAnexo(Base& base, const ClaveDeclaracion& clave);

    [[nodiscard]] bool SiguienteCliente();
    [[nodiscard]] const ClienteImpreso& Cliente() const { return m_cliente; }

    /// Of the client at hand.
    [[nodiscard]] bool SiguienteComprobante();
    [[nodiscard]] ComprobanteImpreso Comprobante() const;
    /// Of the voucher at hand.
    [[nodiscard]] bool SiguientePago();
    [[nodiscard]] PagoImpreso Pago() const;
    /// Of the client at hand.
    [[nodiscard]] bool SiguienteContado();
    [[nodiscard]] ComprobanteImpreso Contado() const;

  private:
    [[nodiscard]] std::strong_ordering RespectoDelCliente(const FilasEnPaso& filas) const;
    void DejaComprobante();

    Registros m_clientes;
    FilasEnPaso m_comprobantes;
    FilasEnPaso m_pagos;
    FilasEnPaso m_contados;
    ClienteImpreso m_cliente;
};

} // namespace xa518
