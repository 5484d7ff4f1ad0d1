#pragma once

#include "data/NewRows.h"
#include "form518/KeyMemory.h"
#include "form518/WorkPayments.h"

#include <array>
#include <optional>

namespace xa518 {

class Base;

/// Adds to the work tables as an import does, by the hundred thousand. What the tables hold is read once and kept in
/// memory, as far as rows are compared by it, and a row that is added counts as stored from then on. It is written with
/// many others by `Escribe`. One object serves a whole import.
/// While one thread writes the rows that were set apart, another one may ask and add; the base belongs to the first.
class AltasTrabajo {
  public:
    explicit AltasTrabajo(Base& base);

    /// Within the transaction in which the rows will be written, before the first of them: reads the tables, anew when
    /// somebody else has changed the base since, which it tells. Rows that aren't set apart are then forgotten: they
    /// were added to other tables.
    bool Empieza();

    [[nodiscard]] bool Existe(const ClaveCliente& cliente);
    [[nodiscard]] bool Existe(const ClaveComprobante& clave);
    [[nodiscard]] bool Existe(const ClavePago& clave);

    /// By what two readings of a voucher are told to be the same, as its row has it.
    struct Cobro {
        QString fecha;
        MontoEscrito base;
    };
    /// Of a voucher in the table; nothing when it isn't there.
    [[nodiscard]] std::optional<Cobro> BuscaCobro(const ClaveComprobante& clave);

    /// Of rows that don't exist. By `linea`, a number of the caller's, `Escribe` tells of them.
    void Agrega(const ClaveCliente& cliente, const NombresCliente& nombres, qint64 linea);
    void Agrega(const ClaveComprobante& clave, const CamposComprobante& campos, qint64 linea);
    void Agrega(const ComprobanteDePago& pago, qint64 linea);

    /// Forgets the rows of that line and those behind it, as far as they aren't set apart.
    void Olvida(qint64 desdeLinea);
    /// Sets apart the rows that were added since the last time, to be written by `EscribeApartadas`.
    void Aparta();
    /// Writes the rows that are set apart. Returns the lines whose rows the tables don't take, in
    /// their order, once for each row: somebody else has put a row there, which nobody can while the transaction lasts.
    /// After an error the transaction is only good to be undone.
    [[nodiscard]] QList<qint64> EscribeApartadas();
    /// The same for the rows that were added since the last time.
    [[nodiscard]] QList<qint64> Escribe();

  private:
    using Lugar = MemoriaDeClaves::Lugar;

    /// Rows of one table with their lines.
    struct Nuevas {
        FilasNuevas filas;
        std::vector<qint64> lineas;

        void Olvida(qint64 desdeLinea);
    };
    struct Tablas {
        explicit Tablas(Base& base);
        [[nodiscard]] std::array<Nuevas*, 3> Cada() { return {&clientes, &comprobantes, &pagos}; }

        Nuevas clientes;
        Nuevas comprobantes;
        Nuevas pagos;
    };

    void PonPisos();
    void LeeClientes();
    void LeeComprobantes();
    void LeePagos();
    const std::string& Clave(const ClaveCliente& cliente);
    const std::string& Clave(const ClaveComprobante& clave, Lugar cliente);
    const std::string& Clave(const ClavePago& clave, Lugar comprobante);
    /// The key of what hangs on another row.
    const std::string& ClaveBajo(Lugar padre, const std::array<const QString*, 3>& partes);
    [[nodiscard]] Lugar Busca(const ClaveComprobante& clave);
    [[nodiscard]] Lugar Pon(const ClaveComprobante& clave);
    [[nodiscard]] quint32 PonCobro(QStringView fecha, QStringView base);

    Base* m_base;
    std::optional<qint64> m_version; ///< of the base when the tables were read
    MemoriaDeClaves m_clientes;      ///< also of vouchers without a client's row; its number is 1 when it has one
    MemoriaDeClaves m_comprobantes;  ///< also of payments without a voucher's row; its number is 1 more than its charge
    MemoriaDeClaves m_pagos;
    MemoriaDeClaves m_cobros; ///< dates and amounts of ordinary vouchers
    std::string m_clave;      ///< the last one that was put together
    Tablas m_nuevas;
    Tablas m_apartadas;
};

} // namespace xa518
