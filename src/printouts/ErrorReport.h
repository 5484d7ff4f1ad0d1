#pragma once

#include "reports/ReportWriter.h"
#include "values/Period.h"
#include "values/Ruc.h"

#include <QString>

namespace xa518 {

class Reloj;

/// What the report of an import's refused lines tells.
struct DatosErrores {
    QString rutaLista; ///< the error list, by the very name under which the import wrote it
    Ruc docDeclarante;
    QString nombreDeclarante;
    Periodo periodo;
};

/// The report of refused lines, PER005: the error list under a head, with a sub-total after every 69 lines.
class ReporteErrores {
  public:
    ReporteErrores(const Reloj& reloj, DatosErrores datos, EscritorInforme& escritor);

    /// Raises `Error` (`ArchivoNoEncontrado`, `AccesoAlDisco`) when there is no list to read.
    void Imprime();

  private:
    void Cabecera();
    void Cuerpo();
    void Cuadra(const QString& rotulo, int anchoRaya);

    const Reloj* m_reloj;
    DatosErrores m_datos;
    EscritorInforme* m_escritor;
    int m_hojas = 1;
    int m_errores = 0;
};

} // namespace xa518
