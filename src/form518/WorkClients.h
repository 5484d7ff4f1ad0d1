#pragma once

#include "data/LongList.h"
#include "form518/DetailColumns.h"
#include "values/Decimal.h"
#include "values/DocumentCode.h"

#include <QString>

#include <optional>

namespace xa518 {

class Base;

/// A client of the open declaration, as the work tables tell it from the others.
struct ClaveCliente {
    CodigoDocumento tipoDoc;
    QString numero;
};

/// How a client is called: a company by one name, a person by three. What is missing isn't written: a new row has null
/// there, an old one keeps what it had.
struct NombresCliente {
    std::optional<QString> razon{};
    std::optional<QString> apellidoP{};
    std::optional<QString> apellidoM{};
    std::optional<QString> nombres{};
};

/// What a client's row keeps of its vouchers; the amounts in cents.
struct TotalesCliente {
    int ctdDocs = 0;
    Importe base;
    Importe percepcion;
};

/// A row of the grid of clients, as it is picked there and handed to the dialog that edits it.
struct FilaCliente {
    CodigoDocumento tipDocPer;
    QString numDocPer;
    QString desRazon;
    QString apellidoP;
    QString apellidoM;
    QString nombres;
};

/// The columns of the query over all clients.
enum class ColumnaCliente {
    Doc,
    NumDocPer,
    DesRazon,
    MtoBaseP,
    MtoImpP,
    DesApellidoP,
    DesApellidoM,
    DesNombres,
    TipDocPer
};

/// The grid's query: one row per client of the work table, with the short name of its document type. A client whose
/// type the catalogue lacks isn't in it, and so is lost at a save, whose source it is. Wanted.
[[nodiscard]] ConsultaDeLista SqlClientes();
/// How many rows it has.
[[nodiscard]] int CuentaClientes(Base& base);

/// The clients of the open declaration, each by itself; many at once are `AltasTrabajo`'s.
class ClientesTrabajo {
  public:
    explicit ClientesTrabajo(Base& base);

    [[nodiscard]] bool Existe(const ClaveCliente& cliente) const;

    /// A row whose key stands there already raises `ErrorBase` (`ClaveDuplicada`).
    void Agrega(const ClaveCliente& cliente, const NombresCliente& nombres, const TotalesCliente& totales);
    /// Nothing is written when the row is gone.
    void Modifica(const ClaveCliente& cliente, const NombresCliente& nombres, const TotalesCliente& totales);
    void EscribeTotales(const ClaveCliente& cliente, const TotalesCliente& totales);

    /// Removes the client's row alone, for a client that has no vouchers left; one transaction.
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
    using enum DatoCliente;

    void PonNombres(Registro& fila, const NombresCliente& nombres) const;
    void PonTotales(Registro& fila, const TotalesCliente& totales) const;

    Base* m_base;
    const Tabla* m_tabla;
    LugaresDe<DatoCliente> m_lugar;
};

} // namespace xa518
