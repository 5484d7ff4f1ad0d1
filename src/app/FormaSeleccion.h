#pragma once

#include "app/Dialogs.h"
#include "data/LongList.h"
#include "widgets/Form.h"
#include "widgets/QueryModel.h"

#include <memory>

namespace Ui {
class FormaSeleccion;
}

namespace xa518 {

class GrillaDeLectura;

/// What a list of declarations is opened for: to open the row's declaration, or to delete it.
enum class OpcionDeLista { Modificar, Eliminar };

/// What the two lists of declarations are alike in: the grid, the row that the status bar tells, the command on the
/// row and the way out.
class FormaSeleccion : public Forma {
    Q_OBJECT
  public:
    ~FormaSeleccion() override;

  protected:
    struct Textos {
        QString titulo;
        QString accion;
        QString etiqueta;
    };

    /// One title for each column of the query, in its order.
    FormaSeleccion(const Entorno& entorno, OpcionDeLista opcion, const QStringList& columnas, const QString& marco,
                   QWidget* padre);

    void Presenta(const Textos& textos);
    /// Changes what the list is read from; it shows with the next `Refresca`.
    void PonConsulta(ConsultaDeLista consulta) { m_consulta = std::move(consulta); }
    /// Reads the list again and goes to that row, or to the first when it is no longer there.
    void Refresca(int fila = 0);

    [[nodiscard]] const Proceso& ElProceso() const { return m_entorno.proceso; }
    [[nodiscard]] GrillaDeLectura& Grilla() const;
    /// The trimmed text of a cell.
    [[nodiscard]] QString Celda(int fila, int columna) const;

    /// The row in the form that the next one needs.
    [[nodiscard]] virtual DeclaracionElegida Elegida(int fila) const;

    void Salir() override;

  private:
    void Conecta();
    void MuestraFila(int fila);
    void Actua();
    /// Tells the person when another program has sent or deleted that row's declaration, and lists what is left.
    [[nodiscard]] bool SigueAhi(int fila);
    void Abre();
    [[nodiscard]] AperturaPedida Pedida();
    void Muestra(QDialog& forma, int fila);
    void Elimina();
    void EliminaDeVerdad();

    std::unique_ptr<Ui::FormaSeleccion> m_ui;
    Entorno m_entorno;
    OpcionDeLista m_opcion;
    ModeloDeConsulta* m_datos;
    ConsultaDeLista m_consulta;
};

} // namespace xa518
