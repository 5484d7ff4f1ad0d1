#pragma once

#include "import/CheckedLine.h"

#include <QByteArrayView>
#include <QHash>
#include <QString>

#include <optional>

namespace xa518 {

class Base;
struct ClaveDeclaracion;
struct Proceso;

/// A file to which a run adds lines. It is opened and closed for each, and its first line of the run replaces what an
/// earlier run has left.
class ArchivoLog {
  public:
    explicit ArchivoLog(QString ruta) : m_ruta(std::move(ruta)) {}

    /// Raises `Error` (`AccesoAlDisco`).
    void Agrega(QByteArrayView linea);

    [[nodiscard]] const QString& Ruta() const { return m_ruta; }
    [[nodiscard]] bool Empezado() const { return m_empezado; }

  private:
    [[nodiscard]] bool AgregaDeprisa(const QByteArray& bytes) const;
    void AgregaConMotivo(const QByteArray& bytes);

    QString m_ruta;
    bool m_empezado = false;
};

/// The two traces of refused lines: the lines themselves, to be corrected and imported again, and a list of what is
/// wrong with them. Both kinds of import file share one pair of names.
class LogImportacion {
  public:
    LogImportacion(const Proceso& proceso, const ClaveDeclaracion& clave);

    /// Writes a refused line as it stood in the file, and its key with the reason. A failure doesn't end the run; the
    /// first one is kept in `Falla`.
    void GraboLog(QByteArrayView linea, const QString& clave, Codigo codigo);

    /// Name of the file with the refused lines, and of the list; each is this run's own once it is begun.
    [[nodiscard]] const QString& RutaLog() const { return m_log.Ruta(); }
    [[nodiscard]] const QString& RutaErr() const { return m_err.Ruta(); }
    [[nodiscard]] bool LogEmpezado() const { return m_log.Empezado(); }
    [[nodiscard]] bool ErrEmpezado() const { return m_err.Empezado(); }
    [[nodiscard]] const QString& Falla() const { return m_falla; }

  private:
    [[nodiscard]] QString LineaDeLista(const QString& clave, Codigo codigo);
    [[nodiscard]] std::optional<QString> TextoDe(const QString& codigo);
    template <typename Escritura>
    void Anota(const Escritura& escritura);

    Base* m_base;
    ArchivoLog m_log;
    ArchivoLog m_err;
    QString m_falla;
    QHash<QString, std::optional<QString>> m_textos; ///< of the codes met so far; none that the table lacks
};

} // namespace xa518
