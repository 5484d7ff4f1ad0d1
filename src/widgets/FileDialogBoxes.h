#pragma once

#include "platform/FileDialogs.h"

namespace xa518 {

/// The system's own dialogs, over the form in front.
class DialogosDeArchivoEnPantalla final : public DialogosDeArchivo {
  public:
    [[nodiscard]] QString PideArchivo(const ArchivoPedido& pedido) override;
    [[nodiscard]] QString PideCarpeta(const QString& titulo, const QString& desde) override;
};

} // namespace xa518
