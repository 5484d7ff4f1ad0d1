#pragma once

#include "form518/WorkClients.h"
#include "values/WrittenAmount.h"

#include <QString>

#include <optional>

namespace xa518 {

/// A voucher of a client: an ordinary perception voucher, or a cash sale when `tipCp` isn't empty.
struct ClaveComprobante {
    ClaveCliente cliente;
    QString serie{};
    QString numero{};
    QString tipCp{};
};

/// What can be changed of a stored voucher.
struct CamposComprobante {
    QString cpFact;    ///< "1", "0", or empty for unanswered: then the column isn't written
    QString listaClie; ///< "1", "0", "9"
    QString medPago;   ///< "1", "0", "9"
    QString fecha;
    MontoEscrito base;
    std::optional<Importe> percepcion; ///< in cents
    QString tasa;
};

struct Comprobante {
    ClaveComprobante clave;
    CamposComprobante campos{};
};

/// The columns of the query over a client's vouchers.
enum class ColumnaComprobante { Serie, Numero, Fecha, Base, Tasa, Percepcion, CpFact, ListaClie, MedPago, TipCp };

/// A perception as its row keeps it and its field shows it; a null text for none.
[[nodiscard]] QString TextoDePercepcion(const std::optional<Importe>& percepcion);

/// The vouchers of the open declaration, each by itself; many at once are `AltasTrabajo`'s.
class ComprobantesTrabajo {
  public:
    explicit ComprobantesTrabajo(Base& base);

    /// A client's vouchers in the order in which they were entered, and the description of a cash sale's type.
    [[nodiscard]] static ConsultaDeLista SqlDeCliente(const ClaveCliente& cliente);

    [[nodiscard]] bool Existe(const ClaveComprobante& clave) const;

    /// A row whose key stands there already raises `ErrorBase` (`ClaveDuplicada`).
    void Agrega(const ClaveComprobante& clave, const CamposComprobante& campos);
    /// Nothing is written when the row is gone.
    void Modifica(const ClaveComprobante& clave, const CamposComprobante& campos);

    /// Removes the row alone, which has lost what hung on it; one transaction.
    void Borra(const ClaveComprobante& clave);
    /// Removes an ordinary voucher with its payment vouchers, a cash sale without looking for any (wanted: it has
    /// none); one transaction.
    void Elimina(const ClaveComprobante& clave);

    /// What the voucher's dialog leaves behind when it is left: payment vouchers of a voucher that was never stored,
    /// and a stored one, opened to be modified, that has lost all its payment vouchers.
    void BarreAlSalir(const ClaveComprobante& clave, bool esNuevo, bool sinPagos);

  private:
    using enum DatoComprobante;

    void Quita(const ClaveComprobante& clave);
    void PonCampos(Registro& fila, const CamposComprobante& campos) const;

    Base* m_base;
    const Tabla* m_tabla;
    LugaresDe<DatoComprobante> m_lugar;
};

} // namespace xa518
