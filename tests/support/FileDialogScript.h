#pragma once

#include "platform/FileDialogs.h"

namespace xa518 {

/// Answers with what the test puts here, and keeps what was asked.
class DialogosDeArchivoDePrueba final : public DialogosDeArchivo {
  public:
    [[nodiscard]] QString PideArchivo(const ArchivoPedido& pedido) override {
        ultimo = pedido;
        return respuesta;
    }
    [[nodiscard]] QString PideCarpeta(const QString& /*titulo*/, const QString& /*desde*/) override {
        return respuesta;
    }

    QString respuesta; ///< empty: the person thinks better of it
    ArchivoPedido ultimo;
};

} // namespace xa518
