#pragma once

#include "values/Error.h"

#include <QFile>
#include <QString>

namespace xa518 {

/// A file that takes its place only when it is whole: until then it has another name, and is removed unless it got its
/// own. Raises `Error` (`AccesoAlDisco`), which tells of the file by its own name, as soon as the disk takes no more.
class ArchivoParcial {
  public:
    explicit ArchivoParcial(const QString& ruta);
    ArchivoParcial(const ArchivoParcial&) = delete;
    ArchivoParcial& operator=(const ArchivoParcial&) = delete;
    ~ArchivoParcial();

    void Escribe(const QByteArray& bytes);
    /// Bytes written so far.
    [[nodiscard]] qint64 Largo() const { return m_archivo.pos(); }
    void Confirma();

  private:
    [[nodiscard]] Error Falla() const;

    QString m_ruta;
    QFile m_archivo;
};

} // namespace xa518
