#pragma once

#include "app/Dialogs.h"
#include "data/DocumentTypes.h"
#include "platform/Form.h"

#include <memory>

namespace xa518 {

namespace Ui {
class FormaSeleccion;
}
class ModeloFilas;
class RelojDeArena;

/// What the two lists of declarations are alike in: the grid, the row that the status bar tells, the command on the
/// row and the way out. `Proceso::opcion` says what the command is: open the row's declaration, or delete it.
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

    FormaSeleccion(const Entorno& entorno, const QStringList& columnas, const QString& marco, QWidget* padre);

    void Presenta(const Textos& textos);
    /// Changes what the list is read from; it shows with the next `Refresca`.
    void PonConsulta(ConsultaSql consulta) { m_consulta = std::move(consulta); }
    /// Reads the list again and goes to that row, or to the first when it is no longer there.
    void Refresca(int fila = 0);

    [[nodiscard]] Proceso& ElProceso() const { return m_entorno.proceso; }
    [[nodiscard]] const ModeloFilas& Lista() const { return *m_datos; }

    /// The row in the form that the next one needs.
    [[nodiscard]] virtual DeclaracionElegida Elegida(int fila) const;
    [[nodiscard]] virtual ClaveDeclaracion Clave(int fila) const;
    /// Before the command works on a row.
    virtual void TomaFila(int /*fila*/) {}
    /// A key typed on the grid goes on to it.
    [[nodiscard]] virtual bool DejaPasar(const QKeyEvent& /*tecla*/) const { return true; }
    virtual void PulsaCabecera(int /*columna*/) {}

    void Salir() override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

  private:
    void PreparaGrilla();
    void Conecta();
    [[nodiscard]] int FilaActual() const;
    void MuestraFila();
    void Actua();
    void Abre(RelojDeArena& reloj);
    void Elimina();

    std::unique_ptr<Ui::FormaSeleccion> m_ui;
    Entorno m_entorno;
    ModeloFilas* m_datos;
    ConsultaSql m_consulta;
};

} // namespace xa518
