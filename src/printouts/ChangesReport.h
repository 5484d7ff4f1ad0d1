#pragma once

#include "form518/Comparison.h"
#include "printouts/DeclarationData.h"
#include "reports/ReportWriter.h"

#include <QDateTime>

#include <memory>

namespace xa518 {

class Reloj;

/// What the report of a comparison tells.
struct DatosCambios {
    std::shared_ptr<const Comparacion> comparacion;
    NombresDocumento nombres;
};

/// What differs from a sent copy, PER008: the boxes that people know, and the clients of which anything differs.
class InformeCambios {
  public:
    InformeCambios(const Reloj& reloj, const DatosCambios& datos, EscritorInforme& escritor);

    [[nodiscard]] static int TotalPaginas(const Comparacion& comparacion);

    void Imprime();

  private:
    void Cabecera();
    void Casillas();
    void Clientes();
    void Cliente(const ClienteComparado& cliente);
    void Resumen();

    const Comparacion* m_comparacion;
    const NombresDocumento* m_nombres;
    EscritorInforme* m_escritor;
    QDateTime m_ahora;
};

} // namespace xa518
