#pragma once

#include "declaration/ClientGrid.h"
#include "form518/WorkClients.h"
#include "widgets/QueryModel.h"

#include <QWidget>

#include <memory>
#include <optional>

namespace Ui {
class PagPercepcion;
}

namespace xa518 {

class Avisos;
class Base;
struct Declaracion;

/// The page "Percepción": one line per client of the open declaration, what can be done with it, and the totals.
class PagPercepcion : public QWidget {
    Q_OBJECT
  public:
    explicit PagPercepcion(QWidget* padre = nullptr);
    ~PagPercepcion() override;

    /// A sent copy can only be looked at.
    void MuestraEnviada();

    /// Runs the grid's query anew; the current row stays by position, or becomes the first one. Raises `ErrorBase`.
    void Refresca(Base& base);
    /// Lets go of the work table.
    void Suelta(Base& base);

    /// Totals and count as the record has them.
    void MuestraTotales(const Declaracion& declaracion);
    void MuestraCuenta(int clientes);

    [[nodiscard]] int Fila() const;
    void PonPrimeraFila();
    /// The client of the current row; nothing in an empty grid.
    [[nodiscard]] std::optional<FilaCliente> Elegido() const;

    /// Deletes that client, when the person means it; tells whether.
    [[nodiscard]] bool EliminaElegido(Base& base, Avisos& avisos) const;
    /// Brings the last delete back, or tells why it doesn't come back here.
    [[nodiscard]] static bool RecuperaEliminado(Base& base, Avisos& avisos);

  Q_SIGNALS:
    /// A button, by its index: 0 new, 1 modify, 2 delete, 3 import; a double click or Enter on a row is 1. Ctrl+Z is 4,
    /// the last delete back.
    void Opcion(int indice);

  private:
    std::unique_ptr<Ui::PagPercepcion> m_ui;
    ModeloDeConsulta m_clientes;
};

} // namespace xa518
