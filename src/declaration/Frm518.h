#pragma once

#include "data/DeclarationKey.h"
#include "platform/Form.h"

#include <functional>
#include <memory>
#include <optional>

namespace xa518 {

class Avisos;
class BarradeEstadoQMD;
struct Proceso;

/// The row that a picker hands over. Of a registered declaration only the first three are filled.
struct DeclaracionElegida {
    QString ruc;
    QString nombre;
    QString periodo; ///< `mmyyyy`, as the lists show it
    QString norden;  ///< of a sent copy: "0" before the administration gave one
    QString control;
};

/// A row of the client grid, as the client dialog needs it.
struct ClienteElegido {
    QString tipDocPer;
    QString numDocPer;
    QString desRazon;
    QString apellidoP;
    QString apellidoM;
    QString nombres;
};

/// The dialogs of other rooms that the declaration form opens over itself. One that is missing does nothing.
struct DialogosDeDetalle {
    /// The client dialog: on a row of the grid, or on none for a new client.
    std::function<void(Forma& sobre, const std::optional<ClienteElegido>& cliente)> abreCliente;
    /// The import into the work tables of that declaration.
    std::function<void(Forma& sobre, const ClaveDeclaracion& clave)> abreImportacion;
};

/// The window in which a declaration is filled in, reviewed and corrected. `Proceso::opcion` and `Proceso::enviadas` say
/// how it opens: new, to be modified, or the view of a sent copy, where only the order number can be registered.
class Frm518 : public Forma {
    Q_OBJECT
  public:
    /// `elegida` is the picker's row; a new declaration has none. The base must be open.
    Frm518(Proceso& proceso, Avisos& avisos, BarradeEstadoQMD& barra, DialogosDeDetalle dialogos,
           const DeclaracionElegida& elegida = {}, QWidget* padre = nullptr);
    ~Frm518() override;
};

} // namespace xa518
