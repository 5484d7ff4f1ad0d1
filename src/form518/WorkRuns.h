#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

namespace xa518 {

class Base;

/// A file on its way into the work tables.
struct ArchivoImportado {
    QString nombre;
    QString huella; ///< its SHA-256, in hexadecimal digits
    qint64 bytes = 0;
};

enum class FinDeCorrida { Completa, Cancelada, Fallida };

/// An import that has added rows to the open declaration.
struct CorridaTrabajo {
    int numero = 0;
    ArchivoImportado archivo;
    QDateTime hora;
    QString usuario;
    std::optional<FinDeCorrida> fin;    ///< none when the program went away in the middle of it
    std::optional<qint64> transferidos; ///< lines; known when the run came to an end
    std::optional<qint64> rechazados;
};

/// The runs of the open declaration, beside its work tables and as long-lived: whatever empties those takes these away.
class CorridasTrabajo {
  public:
    explicit CorridasTrabajo(Base& base) : m_base(&base) {}

    /// Within the transaction of a run's first rows, before them: its number, and the totals that stand. Rows that come
    /// from now on are the run's, until its end or, if it finds none, until the next row by hand or the next run.
    [[nodiscard]] int Empieza(const ArchivoImportado& archivo, const QString& usuario, const QDateTime& hora);
    /// Within the transaction of its last rows, behind them. A run that has added none is forgotten.
    void Termina(int numero, FinDeCorrida fin, qint64 transferidos, qint64 rechazados);
    /// Runs that never came to their end have the rows that are there, and get no more.
    void CierraInterrumpidas();

    [[nodiscard]] std::optional<CorridaTrabajo> Ultima() const;
    /// The last run over a file of just these bytes.
    [[nodiscard]] std::optional<CorridaTrabajo> DeHuella(const QString& huella) const;
    /// Whether any was over a file as long as that.
    [[nodiscard]] bool HayDeTamanio(qint64 bytes) const;

    /// Forgets all runs and the last delete; within the transaction that empties the work tables.
    void Vacia();

  private:
    [[nodiscard]] std::optional<CorridaTrabajo> Lee(const QString& condicion, const QVariantList& valores) const;
    void Cierra(const QString& condicion, const QVariantList& valores);

    Base* m_base;
};

} // namespace xa518
