#pragma once

#include "printouts/AnnexLines.h"
#include "printouts/DeclarationData.h"
#include "reports/ReportWriter.h"

#include <QStringList>

namespace xa518 {

class Reloj;

/// The annex of a declaration, report PER007: every client with each voucher, its payment vouchers and the cash sales,
/// as running lines 154 characters wide.
class InformeAnexo {
  public:
    InformeAnexo(Base& base, const Reloj& reloj, const DatosDeclaracion& datos, EscritorInforme& escritor);

    /// An estimate, told by the head before the first page is made. Wanted: the pages made may be
    /// more or fewer, and counting them would mean making the annex twice.
    [[nodiscard]] static int TotalPaginas(Base& base, const ClaveDeclaracion& clave);

    void Imprime();

  private:
    struct Sumas : SumasAnexo {
        void Agrega(const ComprobanteImpreso& comprobante);
    };

    /// The head of every page but its first line, which tells time and page.
    [[nodiscard]] QStringList LineasFijas() const;
    void ImprimeCabeceraAnexo();
    void Cliente(FilasAnexo& filas);
    void Comprobante(const QString& comprobante, FilasAnexo& filas);
    void FinDeCliente(const Sumas& sumas);
    void Cierre();
    void Leyenda();

    /// A line of a client, on a new page when the one at hand is used up.
    void Linea(const QString& texto);
    void TerminaPagina();

    Base* m_base;
    const Reloj* m_reloj;
    const DatosDeclaracion* m_datos;
    EscritorInforme* m_escritor;
    LineasAnexo m_lineas;
    NombresDocumento m_nombres;
    QStringList m_cabecera;
    Sumas m_total;
    int m_usadas = 0; ///< lines of the page
};

} // namespace xa518
