#pragma once

#include "import/FaultTable.h"
#include "import/RefusedLine.h"

#include <QByteArray>
#include <QTemporaryFile>

#include <vector>

namespace xa518 {

/// The refused lines of a run, kept to be put right. A whole month may be refused: their bytes go to a temporary file,
/// and in memory a line takes 24 bytes. The file that was imported may change meanwhile.
class LineasRechazadas final : public ReceptorDeRechazadas {
  public:
    LineasRechazadas();

    void Recibe(const LineaRefutada& linea) override;
    void Desiste() override { m_completas = false; }

    /// After the last line. From here on the lines can be read, from any thread, in the order of their file and each
    /// once.
    void Cierra();

    /// Whether all of them are here; otherwise there is nothing to be put right with.
    [[nodiscard]] bool EstanCompletas() const { return m_completas; }
    [[nodiscard]] int Cuantas() const { return static_cast<int>(m_lineas.size()); }
    [[nodiscard]] qint64 Numero(int cual) const { return De(cual).numero; }
    [[nodiscard]] QByteArrayView Bytes(int cual) const;
    [[nodiscard]] QString Texto(int cual) const { return Decodifica(Bytes(cual), m_codificacion); }
    /// The number of its fault in `Fallas`.
    [[nodiscard]] quint16 Falla(int cual) const { return De(cual).falla; }
    [[nodiscard]] const TablaDeFallas& Fallas() const { return m_fallas; }
    [[nodiscard]] Codificacion CodificacionDelArchivo() const { return m_codificacion; }

  private:
    struct Lugar {
        qint64 numero;
        qint64 desde; ///< in the temporary file
        qint32 largo;
        quint16 falla;
    };

    [[nodiscard]] const Lugar& De(int cual) const { return m_lineas[static_cast<size_t>(cual)]; }
    void Vuelca();

    QTemporaryFile m_archivo;
    QByteArray m_pendientes; ///< bytes not yet in the temporary file
    qint64 m_bytes = 0;      ///< of all lines
    std::vector<Lugar> m_lineas;
    TablaDeFallas m_fallas;
    Codificacion m_codificacion = Codificacion::Utf8;
    const char* m_mapa = nullptr; ///< the temporary file as memory
    bool m_completas = true;
};

} // namespace xa518
