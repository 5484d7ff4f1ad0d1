#pragma once

#include "data/Base.h"
#include "family/DeclarationKey.h"
#include "form518/DetailColumns.h"

#include <QStringList>

namespace xa518 {

/// The two kinds of vouchers, each of which has a table and a kind of import file.
enum class ClaseDeComprobante { Percepcion, Venta };

/// The vouchers of a saved declaration, registered or sent, in the order in which they were entered, each with its
/// client and, a perception voucher, once for each of its payment vouchers. Read forward. Raises `ErrorBase`.
class LineasGuardadas {
  public:
    LineasGuardadas(Base& base, const ClaveDeclaracion& clave, ClaseDeComprobante clase);

    [[nodiscard]] bool Siguiente() { return m_filas.Siguiente(); }

    /// As the row has it; the empty text for null, and for what the current row or its kind hasn't.
    [[nodiscard]] QString Dato(DatoCliente dato) const { return m_filas.Texto(m_cliente[dato]); }
    [[nodiscard]] QString Dato(DatoComprobante dato) const;
    [[nodiscard]] QString Dato(DatoPago dato) const;

    [[nodiscard]] bool TieneCliente() const { return !m_filas.EsNulo(m_cliente[DatoCliente::NumDoc]); }
    [[nodiscard]] bool TienePago() const;

  private:
    /// Where the data stand in the query's columns.
    template <typename Dato>
    class Columnas {
      public:
        Columnas(QList<Dato> datos, int primera) : m_datos(std::move(datos)), m_primera(primera) {}
        [[nodiscard]] int operator[](Dato dato) const { return m_primera + static_cast<int>(m_datos.indexOf(dato)); }
        [[nodiscard]] bool Tiene(Dato dato) const { return m_datos.contains(dato); }
        [[nodiscard]] int Fin() const { return m_primera + static_cast<int>(m_datos.size()); }

      private:
        QList<Dato> m_datos;
        int m_primera;
    };

    [[nodiscard]] QString Sql(Base& base, const ClaveDeclaracion& clave) const;

    ClaseDeComprobante m_clase;
    Columnas<DatoComprobante> m_comprobante;
    Columnas<DatoCliente> m_cliente;
    Columnas<DatoPago> m_pago;
    Registros m_filas;
};

/// The clients of a saved declaration that have no voucher, by document type and number.
[[nodiscard]] QStringList ClientesSinComprobante(Base& base, const ClaveDeclaracion& clave);

/// Its payment vouchers behind which no perception voucher stands, by client, that one's series and number, and their
/// own type, series and number.
[[nodiscard]] QStringList PagosSinComprobante(Base& base, const ClaveDeclaracion& clave);

} // namespace xa518
