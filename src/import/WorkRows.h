#pragma once

#include "data/Base.h"
#include "import/CheckedLine.h"
#include "import/ImportRate.h"

namespace xa518 {

/// Adds clients to `TMPF518PCAB`. Like the two classes below it resolves its columns once and fills one row for all
/// lines; a row whose key stands there already raises `ErrorBase` (`ClaveDuplicada`).
class AltaCliente {
  public:
    explicit AltaCliente(Base& base);

    /// True when the client isn't in the table yet.
    [[nodiscard]] bool Not_Seek_Cab_N(const LineaComprobada& linea) const;
    void Agrega(const LineaComprobada& linea);

  private:
    struct Columnas {
        int tipo, numero, razon, paterno, materno, nombres;
    };
    void PonEmpresa(const LineaComprobada& linea);
    void PonPersona(const LineaComprobada& linea);

    Base* m_base;
    Registro m_fila;
    Columnas m_columnas{};
};

/// Adds perception vouchers to `TMPF518PDET`, with the perception that the rate in force gives.
class AltaComprobante {
  public:
    AltaComprobante(Base& base, Periodo periodoDeclarado, Periodo fechaPrimerIgv);

    /// `tipCp` is the type of a cash-sale voucher, the empty text for any other.
    void Agrega(const LineaComprobada& linea, const QString& tipCp);

  private:
    struct Columnas {
        int tipo, numero, serie, cp, tipCp, credito, lista, medPago, fecha, base, percepcion, tasa;
    };
    void PonRespuestas(const LineaComprobada& linea);
    void PonMontos(const LineaComprobada& linea);

    Base* m_base;
    TasaImportacion m_tasa;
    Registro m_fila;
    Columnas m_columnas{};
};

/// Adds payment vouchers to `TMPF518PDETCP`.
class AltaPago {
  public:
    explicit AltaPago(Base& base);

    void Agrega(const LineaComprobada& linea);

  private:
    struct Columnas {
        int tipo, numero, serie, cp, tipoPago, seriePago, numeroPago, fecha, monto;
    };

    Base* m_base;
    Registro m_fila;
    Columnas m_columnas{};
};

} // namespace xa518
