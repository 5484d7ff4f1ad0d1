#pragma once

#include "family/DeclarationKey.h"
#include "form518/WorkClients.h"
#include "values/Decimal.h"

#include <QString>

namespace xa518 {

class Base;

/// Tells a company by its document: type 6 and a number that begins with "20". Any other client is a person.
[[nodiscard]] bool EsEmpresa(CodigoDocumento tipo, QStringView numero);

/// The query that sums amounts and perceptions of a client's vouchers, cash sales included.
[[nodiscard]] const QString& SqlSumasDeCliente();

/// The three work tables, which hold the one open declaration: loaded, counted, totalled and swept here.
class TablasTrabajo {
  public:
    explicit TablasTrabajo(Base& base) : m_base(&base) {}

    /// Empties the tables and fills them with the declaration's rows, the sent copy's when the key says so. A key that
    /// matches nothing, as a new declaration's does, leaves them empty. One transaction.
    void Reconstruye(const ClaveDeclaracion& clave);
    /// The same within a transaction of the caller.
    void Llena(const ClaveDeclaracion& clave);

    /// Number of voucher rows, cash sales included, of a client.
    [[nodiscard]] int CuentaDocs(const ClaveCliente& cliente) const;

    struct Totales {
        Importe base;
        Importe percepcion;
    };
    /// Sum over the clients, every amount first rounded to two decimals.
    [[nodiscard]] Totales TotalesDeClientes() const;
    /// The same as the engine sums them, amounts as they stand. Wanted: what shows when a declaration has been loaded.
    [[nodiscard]] Totales TotalesDeCarga() const;

    /// Brings every client's amounts to the sums of its vouchers, negative ones to 0; one transaction.
    void CalculaTotales();

    /// Brings one client's amounts and count to its vouchers, as its dialog does, if the amounts aren't that. The count
    /// alone may lag behind, as after an import.
    void RepasaTotales(const ClaveCliente& cliente);

    /// Removes a client with its vouchers and payment vouchers; one transaction.
    void EliminaCliente(const ClaveCliente& cliente);

  private:
    void CopiaClientes(const ClaveDeclaracion& clave);
    void CopiaComprobantes(const ClaveDeclaracion& clave, const QString& tabla);
    void CopiaPagos(const ClaveDeclaracion& clave);

    Base* m_base;
};

} // namespace xa518
