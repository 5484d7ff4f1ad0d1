#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace xa518 {

/// The name of a set of work tables, on an engine that keeps one for each seat: small letters, digits and "_", a letter
/// first, 48 at most. It stands in texts where no value can be bound, so nothing else gets into it.
class EsquemaDeTrabajo {
  public:
    /// None for a text that is no such name.
    [[nodiscard]] static std::optional<EsquemaDeTrabajo> De(QStringView nombre);
    [[nodiscard]] const QString& Nombre() const { return m_nombre; }

  private:
    explicit EsquemaDeTrabajo(QString nombre) : m_nombre(std::move(nombre)) {}
    QString m_nombre;
};

/// Whether a base's name is the text of a connection to a server, and not that of a file: a URI, or a word before the
/// first "=".
[[nodiscard]] bool EsDeServidor(const QString& ruta);

/// A base, and which of its sets of work tables is meant; without one, the only one.
struct LugarDeBase {
    QString ruta; ///< a file, or the text of a connection to a server
    std::optional<EsquemaDeTrabajo> trabajo{};
};

} // namespace xa518
