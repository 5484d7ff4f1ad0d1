#pragma once

#include "reports/PdfContent.h"
#include "reports/ReportSheets.h"

#include <optional>
#include <vector>

namespace xa518 {

class DocumentoPdf;

/// Writes reports as the pages of a PDF.
class HojasPdf final : public HojasInforme {
  public:
    explicit HojasPdf(DocumentoPdf& documento);

    /// The root of the document, which is whole when the reports have ended.
    [[nodiscard]] int Catalogo() const { return m_catalogo; }

  private:
    void EmpiezaHoja(bool apaisado) override;
    void Pinta(const Comando& comando) override { m_hoja->Pinta(comando); }
    void Cierra() override;
    void TerminaHoja();
    void TerminaRama();
    [[nodiscard]] QByteArray Recursos();

    DocumentoPdf* m_documento;
    LetrasPdf m_letras;
    std::optional<ContenidoPdf> m_hoja;
    int m_catalogo;
    int m_arbol;
    int m_rama = 0;              ///< of the tree of pages, the one that grows
    std::vector<int> m_deLaRama; ///< pages
    std::vector<int> m_ramas;
    int m_escritas = 0;
};

} // namespace xa518
