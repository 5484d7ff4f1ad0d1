#pragma once

#include "printouts/DeclarationData.h"
#include "reports/ReportWriter.h"

namespace xa518 {

struct ClienteImpreso;

/// The print-out of a declaration, report PER006: a positioned page with a title block, the list of clients with their
/// totals when there are any, and the determination of the debt.
class InformeDeclaracion {
  public:
    InformeDeclaracion(Base& base, const DatosDeclaracion& datos, EscritorInforme& escritor)
        : m_base(&base), m_datos(&datos), m_escritor(&escritor) {}

    /// The pages that the print-out takes, twenty clients to a page. A list of exactly twenty takes a second one:
    /// wanted, its total stands there.
    [[nodiscard]] static int TotalPaginas(const DatosDeclaracion& datos);

    void Imprime();

  private:
    struct TotalesLista;

    /// The title block of a page, from whose end rows go on.
    void IniciaPagina();
    void TituloEnviada();

    /// The clients, if there are any rows.
    void ListaClientes();
    void EncabezaLista();
    void FilaCliente(const ClienteImpreso& cliente, const QString& tipoDoc);
    void FilaTotales(const TotalesLista& totales);

    void Determinacion();
    void Rejilla();
    void FilasDeCasillas();
    void FilaRectifica();
    void FilasDePago();

    /// Texts of the row whose top is `m_posY`.
    void TextoEnFila(int x, const QString& texto) { m_escritor->ImprimePos(x, m_posY + kAltoTexto, texto); }
    void TituloEnFila(int x, const QString& texto) { m_escritor->ImprimePos(x, m_posY + kAltoTexto, texto, 9, true); }
    void CuadroEnFila(int x1, int x2) { m_escritor->ImprimeCuadro(x1, m_posY, x2, m_posY + kAltoFila); }

    static constexpr int kClientesPorPagina = 20;
    static constexpr int kAltoFila = 270;
    static constexpr int kAltoTexto = 80; ///< from the top of a row down to its text

    Base* m_base;
    const DatosDeclaracion* m_datos;
    EscritorInforme* m_escritor;
    int m_posY = 0; ///< top of the row at hand
};

} // namespace xa518
