#pragma once

#include <QHash>
#include <QString>
#include <QUrl>

namespace xa518 {

/// The module's help file while it is open: topics as HTML pages, the contents, and the table that tells which topic
/// belongs to a help context.
class LibroAyuda {
  public:
    /// Raises `Error` (`ArchivoNoEncontrado`) when the file is missing or isn't a help file.
    explicit LibroAyuda(const QString& ruta);
    LibroAyuda(const LibroAyuda&) = delete;
    LibroAyuda& operator=(const LibroAyuda&) = delete;
    ~LibroAyuda();

    [[nodiscard]] static QUrl Contenido();

    /// The page of a context: a number, or the name of a form that gives none. The contents when it is in no table.
    [[nodiscard]] QUrl Tema(const QString& contexto) const;

  private:
    QString m_ruta;
    QHash<QString, QString> m_temas;
};

} // namespace xa518
