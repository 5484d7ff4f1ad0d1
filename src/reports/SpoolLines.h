#pragma once

#include <QByteArray>
#include <QByteArrayView>

class QIODevice;

namespace xa518 {

/// Cuts a device into lines, whatever it holds, with one small block in memory: where the import refuses a line that
/// is too long, a report is shown as far as it can be. LF and CRLF end a line; one longer
/// than any report writes is passed over, and its place shows as an empty line.
class LineasTolerantes {
  public:
    static constexpr qsizetype kLineaMaxima = 32'768;

    /// Starts at an offset, and stops at another one when it is told.
    explicit LineasTolerantes(QIODevice& entrada, qint64 desde = 0, qint64 hasta = -1);

    /// Moves to the next line, at first to the first one; false past the last. A failure of the device ends it too.
    [[nodiscard]] bool Siguiente();

    /// Valid until the next move.
    [[nodiscard]] QByteArrayView Linea() const { return m_linea; }
    /// Where the line begins, and where the next one does.
    [[nodiscard]] qint64 Inicio() const { return m_inicio; }
    [[nodiscard]] qint64 Fin() const { return m_fin; }

  private:
    [[nodiscard]] bool Llena();
    void Pasa(qsizetype largo, qsizetype terminador);

    QIODevice* m_entrada;
    qint64 m_hasta;
    QByteArray m_bloque;
    qsizetype m_usado = 0; ///< of the block, by lines already handed out
    QByteArrayView m_linea;
    qint64 m_inicio = 0;
    qint64 m_fin;
};

} // namespace xa518
