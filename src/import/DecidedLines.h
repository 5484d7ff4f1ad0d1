#pragma once

#include "import/FileSurvey.h"
#include "import/ImportFormat.h"
#include "import/LineReader.h"
#include "values/Error.h"

#include <QByteArray>

#include <exception>
#include <functional>
#include <stop_token>
#include <vector>

namespace xa518 {

/// What is told when a file isn't the one any more that was looked through before the run.
[[nodiscard]] Error ArchivoCambiado();
/// Moves to the next line of such a file; false past the last. A line that is too long now is news, and raises that.
[[nodiscard]] bool LeeLinea(LectorLineas& lector);

/// What becomes of a line: its checks refuse it, or else the tables may have something against it.
struct Dictamen {
    Refutacion refutacion;
    Objeciones objeciones;
    std::exception_ptr falla; ///< of the tables, which ends the run

    [[nodiscard]] bool Pasa() const { return !refutacion && objeciones.isEmpty() && !falla; }
};

/// The lines of a run in their order, each with what becomes of it. While a batch is written, the lines behind it are
/// decided in a thread beside: that touches neither base nor logs nor counters, and what follows of a line follows when
/// its turn has come.
class LineasDecididas {
  public:
    LineasDecididas(QIODevice& archivo, Codificacion codificacion, const FormatoImportacion& formato,
                    const ContextoImportacion& contexto, Almacen& almacen);

    /// Moves to the next line; false past the last. Raises `Error` where the file can't be read.
    [[nodiscard]] bool Siguiente();
    /// How much of the file lies before the end of the current line.
    [[nodiscard]] qint64 BytesLeidos() const;

    /// Decides the current line, once.
    [[nodiscard]] Dictamen Decide();
    /// The bytes of a line that doesn't pass, as long as it is the current one.
    [[nodiscard]] QByteArrayView Bytes() const;

    /// Runs `trabajo`, which may write rows that are set apart, and decides no more than so many lines meanwhile, from
    /// the current one on.
    void Adelanta(qint64 maximo, const std::function<void()>& trabajo);
    /// Takes back what was decided beside that work, since the tables aren't any more what it was decided by.
    void Repite();

  private:
    /// A line decided beside the writing that doesn't pass.
    struct Notada {
        size_t lugar; ///< among those decided so
        QByteArray bytes;
        Dictamen dictamen;
    };

    [[nodiscard]] bool EsAdelantada() const { return m_lugar < m_adelantadas.size(); }
    [[nodiscard]] bool EsNotada() const { return m_notada < m_notadas.size() && m_notadas[m_notada].lugar == m_lugar; }
    [[nodiscard]] bool SiguienteAdelantada();
    [[nodiscard]] bool LeeSiguiente();
    void DecideJunto(qint64 maximo, const std::stop_token& basta) noexcept;
    [[nodiscard]] bool DecideAdelantada(qint64 numero);
    [[nodiscard]] Refutacion Comprueba();
    [[nodiscard]] Dictamen Guarda(qint64 numero);
    void Vacia();

    LectorLineas m_lector;
    Codificacion m_codificacion;
    const FormatoImportacion& m_formato;
    const ContextoImportacion& m_contexto;
    Almacen& m_almacen;
    qint64 m_numero = 0;   ///< of the current line, from 1
    qint64 m_comienzo = 0; ///< of the current line, where it was read from
    QStringList m_campos;  ///< of a line, as taken
    LineaComprobada m_linea;
    std::vector<qint64> m_adelantadas; ///< of the lines decided beside the writing, what is read with each
    std::vector<Notada> m_notadas;
    size_t m_lugar = 0;         ///< of the current line among them; past them it is the reader's
    size_t m_notada = 0;        ///< the first of those noted that isn't passed
    bool m_porDecidir = false;  ///< the reader's line is none of them
    std::exception_ptr m_falla; ///< of the reading behind them
};

} // namespace xa518
