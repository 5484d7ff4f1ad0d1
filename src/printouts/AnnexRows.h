#pragma once

#include "data/Base.h"
#include "family/DeclarationKey.h"
#include "printouts/JoinedRow.h"
#include "printouts/PrintedClient.h"

#include <QString>
#include <QStringView>

#include <array>
#include <compare>
#include <map>
#include <optional>
#include <span>
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

/// A row of any of the three tables: its place in the order in which the table was filled, the client's number, and
/// from the third field on what is printed of it.
struct FilaAnexo {
    qint64 alta = 0;
    FilaUnida campos;

    enum Campo : size_t { Alta, Cliente, Serie, Numero, Resto };
};

/// The rows of one table that belong to clients with one type of document, client by client, read once and in step with
/// the clients, so that a report's memory doesn't grow with its length.
class FilasEnPaso {
  public:
    FilasEnPaso(Base& base, const QString& sql, const QVariantList& valores);

    /// Moves to the client's next row, at first to its first one. Rows of clients that are missing are passed over.
    [[nodiscard]] bool Siguiente(QStringView cliente);
    /// It may be taken away.
    [[nodiscard]] FilaAnexo& Fila() { return m_fila; }

  private:
    void Avanza();
    [[nodiscard]] std::strong_ordering Respecto(QStringView cliente) const;

    Registros m_filas;
    FilaAnexo m_fila;
    bool m_hay = false;
    bool m_entregada = false;
};

/// A client's rows of one table.
class FilasDeCliente {
  public:
    /// Takes them all from the reading. Not more of them are kept than memory should hold: when there are, none is.
    void Carga(FilasEnPaso& lectura, QStringView cliente);
    [[nodiscard]] bool SonDemasiadas() const { return m_sonDemasiadas; }
    [[nodiscard]] std::vector<FilaAnexo>& Filas() { return m_filas; }

  private:
    std::vector<FilaAnexo> m_filas;
    bool m_sonDemasiadas = false;
};

/// Rows handed out one by one in the order in which they were entered, from memory or, when they are too many, from the
/// base.
class FilasPorAlta {
  public:
    using Tramo = std::span<FilaAnexo>;

    void Empieza(Tramo filas);
    void Empieza(Registros filas);
    [[nodiscard]] bool Siguiente();
    /// The row at hand; it holds until the next move.
    [[nodiscard]] const FilaAnexo& Fila() const { return *m_fila; }
    [[nodiscard]] QStringView Campo(size_t indice) const { return m_fila->campos.Campo(indice); }

  private:
    Tramo m_quedan;
    std::optional<Registros> m_aparte;
    FilaAnexo m_leida; ///< from there
    const FilaAnexo* m_fila = &m_leida;
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
    [[nodiscard]] ComprobanteImpreso Comprobante() const { return De(m_comprobantes); }
    /// Of the voucher at hand.
    [[nodiscard]] bool SiguientePago() { return m_pagos.Siguiente(); }
    [[nodiscard]] PagoImpreso Pago() const;
    /// Of the client at hand.
    [[nodiscard]] bool SiguienteContado() { return m_contados.Siguiente(); }
    [[nodiscard]] ComprobanteImpreso Contado() const { return De(m_contados); }

  private:
    enum class Clase { Comprobantes, Pagos, Contados };
    static constexpr size_t kClases = 3;

    /// What belongs to the clients with one type of document, by class.
    using DeTipo = std::array<FilasEnPaso, kClases>;

    [[nodiscard]] static ComprobanteImpreso De(const FilasPorAlta& filas);
    [[nodiscard]] static QStringList Columnas(Clase clase);
    [[nodiscard]] QString TablaDe(Clase clase) const;
    [[nodiscard]] QString SqlDe(Clase clase) const;
    [[nodiscard]] FilasEnPaso EnPaso(Clase clase, int tipoDoc);
    [[nodiscard]] DeTipo& FilasDelTipo();
    [[nodiscard]] FilasDeCliente& DelCliente(Clase clase) { return m_delCliente[static_cast<size_t>(clase)]; }
    [[nodiscard]] Registros PideDelCliente(Clase clase, const QString& condicion, const QVariantList& valores);
    void Empieza(Clase clase, FilasPorAlta& destino);
    void OrdenaPagos();
    void EligePagos();

    Base* m_base;
    ClaveDeclaracion m_clave;
    Registros m_clientes;
    std::map<int, DeTipo> m_tipos; ///< of those that have come, by type
    ClienteImpreso m_cliente;
    std::array<FilasDeCliente, kClases> m_delCliente; ///< by class
    FilasPorAlta m_comprobantes;
    FilasPorAlta m_pagos;
    FilasPorAlta m_contados;
};

} // namespace xa518
