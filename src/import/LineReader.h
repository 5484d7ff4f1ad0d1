#pragma once

#include <QByteArray>
#include <QByteArrayView>

class QIODevice;

namespace xa518 {

/// Reads a file line by line through one fixed buffer, so that memory doesn't grow with the file or its lines.
/// LF and CRLF end a line, a last line needs no end; a byte order mark and a final Ctrl-Z are dropped.
class LectorLineas {
  public:
    enum class Lectura { Linea, Fin, DemasiadoLarga };

    /// Bytes that a line may have, hundreds of times what a record takes, so that no file without line ends fills
    /// memory.
    static constexpr qsizetype kLargoMaximo = 65536;

    /// Reads `archivo` from its start; it stays open. Every failure of the device is an `Error` (`AccesoAlDisco`).
    explicit LectorLineas(QIODevice& archivo);

    /// Moves to the next line. After `DemasiadoLarga` no further line can be read.
    [[nodiscard]] Lectura Siguiente();

    /// Goes on behind that many bytes of the file, a number that `BytesLeidos` has given.
    void VuelveA(qint64 bytesLeidos);

    /// The bytes of the line without its end; they hold until the next call of `Siguiente`.
    [[nodiscard]] QByteArrayView Linea() const { return m_linea; }
    /// How much of the file lies before the end of the current line.
    [[nodiscard]] qint64 BytesLeidos() const { return m_leidos - (m_hasta - m_desde); }

  private:
    void Rellena();
    void SaltaMarca();
    [[nodiscard]] Lectura EntregaResto(QByteArrayView resto);
    [[nodiscard]] Lectura Entrega(QByteArrayView linea, qsizetype leidos);

    QIODevice& m_archivo;
    QByteArray m_buffer;
    qsizetype m_desde = 0; ///< first byte not handed out yet
    qsizetype m_hasta = 0; ///< end of what has been read
    qint64 m_leidos = 0;
    bool m_agotado = false;
    QByteArrayView m_linea;
};

} // namespace xa518
