#pragma once

#include <QString>

namespace xa518 {

/// A file that a person is asked to name, because it is going to be written.
struct ArchivoPedido {
    QString titulo;   ///< of the dialog
    QString sugerido; ///< full name
    QString tipo;     ///< what such files are called
    QString sufijo;   ///< that they end in, without point; a name without one gets it
};

/// The one way in which a person is asked for a file or a folder. Answers come only from here, so that a test can give
/// them. An empty one says that he thinks better of it.
class DialogosDeArchivo {
  public:
    DialogosDeArchivo() = default;
    DialogosDeArchivo(const DialogosDeArchivo&) = delete;
    DialogosDeArchivo& operator=(const DialogosDeArchivo&) = delete;
    virtual ~DialogosDeArchivo() = default;

    /// A file to be written. Whether one that is there may be replaced has been asked.
    [[nodiscard]] virtual QString PideArchivo(const ArchivoPedido& pedido) = 0;

    /// A folder that is there. The search begins at another.
    [[nodiscard]] virtual QString PideCarpeta(const QString& titulo, const QString& desde) = 0;
};

} // namespace xa518
