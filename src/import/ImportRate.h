#pragma once

#include "form518/RateCatalog.h"
#include "import/CheckedLine.h"

namespace xa518 {

/// The rate of a perception voucher that comes from a file. The class follows from the line's answers in its own way,
/// apart from that of the dialogs, and the row is the one in force in the declared period.
class TasaImportacion {
  public:
    TasaImportacion(Base& base, Periodo periodoDeclarado, Periodo fechaPrimerIgv);

    /// Factor and rate for the answers as they stand in the line, each a "1" for yes.
    [[nodiscard]] FilaTasa NuevaTasa(const QString& credito, const QString& venta, const QString& lista,
                                     const QString& monto);
    /// Whether that is told of the line's answers without asking the base.
    [[nodiscard]] bool Conoce(const LineaComprobada& linea) const;

    [[nodiscard]] Banda BandaDeclarada() const { return m_banda; }

  private:
    CatalogoTasas m_catalogo;
    Periodo m_periodo;
    Banda m_banda;
};

} // namespace xa518
