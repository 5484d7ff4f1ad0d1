#pragma once

#include "data/Base.h"
#include "family/DeclarationKey.h"
#include "printouts/PrintedClient.h"

#include <QString>
#include <QStringView>

#include <compare>
#include <optional>
#include <vector>

namespace xa518 {

/// A perception voucher, or a cash sale: that one has a type and no payment vouchers. Null reads as the empty text.
struct ComprobanteImpreso {
    QStringView serie;
    QStringView numero;
    QStringView fecha;
    QStringView base;
    QStringView tasa;
    QStringView percepcion;
    QStringView creditoFiscal; ///< "1", "0" or another for no answer; so are the next two
    QStringView listaClientes;
    QStringView medioPago;
    QStringView tipo;
};

struct PagoImpreso {
    QStringView tipo;
    QStringView serie;
    QStringView numero;
    QStringView fecha;
    QStringView monto;
};

/// The rows of one table, client by client, read once and in step with the clients, so that a report's memory doesn't
/// grow with its length. Columns 0 and 1 tell the client.
class FilasEnPaso {
  public:
    FilasEnPaso(Base& base, const QString& sql, const QVariantList& valores);

    /// Moves to the client's next row, at first to its first one. Rows of clients that are missing are passed over.
    [[nodiscard]] bool Siguiente(const ClienteImpreso& cliente);
    [[nodiscard]] QString Texto(int columna) const { return m_filas.Texto(columna); }

  private:
    [[nodiscard]] std::strong_ordering Respecto(const ClienteImpreso& cliente) const;

    Registros m_filas;
    bool m_hay;
    bool m_entregada = false;
};

/// A declaration's clients by number, their vouchers and cash sales, and the payment vouchers of the first, each kind
/// in the order in which it was entered. What is handed out holds until the next move.
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

  private:
    using Pagos = std::vector<QString>;

    void CargaPagos();
    void EligePagos();
    [[nodiscard]] Registros PidePagos() const;

    Base* m_base;
    ClaveDeclaracion m_clave;
    Registros m_clientes;
    FilasEnPaso m_comprobantes;
    FilasEnPaso m_pagos;
    FilasEnPaso m_contados;
    ClienteImpreso m_cliente;
    QString m_comprobante; ///< the row at hand, a voucher's or a cash sale's
    QString m_pago;

    Pagos m_delCliente;           ///< by voucher
    bool m_sonDemasiados = false; ///< to be kept: each voucher's are asked for by themselves
    Pagos::const_iterator m_siguiente;
    Pagos::const_iterator m_fin;
    std::optional<Registros> m_aparte;
};

} // namespace xa518
