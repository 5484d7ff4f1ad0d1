#pragma once

#include <QByteArray>

#include <vector>

namespace xa518 {

class ArchivoParcial;

/// An object with bytes, which are compressed.
struct FlujoPdf {
    QByteArray entradas{}; ///< of its dictionary, beside those that tell so
    QByteArray bytes;
};

/// Writes a PDF object by object, in any order, and at the end the table of where they lie. It keeps their places
/// alone: what an object holds is on the disk as soon as it is written.
class DocumentoPdf {
  public:
    /// Raises `Error` (`AccesoAlDisco`) when the disk takes no more, and so do the others.
    explicit DocumentoPdf(ArchivoParcial& archivo);

    /// A number for an object, which others may name before it is written.
    [[nodiscard]] int Reserva();
    void Pon(int objeto, const QByteArray& contenido);
    void PonFlujo(int objeto, const FlujoPdf& flujo);
    /// The end: every number reserved must have its object by now.
    void Termina(int raiz, int informacion);

  private:
    void Empieza(int objeto);

    ArchivoParcial* m_archivo;
    std::vector<qint64> m_lugares; ///< by number, from 1
};

/// As one object names another.
[[nodiscard]] QByteArray ReferenciaPdf(int objeto);

} // namespace xa518
