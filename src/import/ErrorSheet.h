#pragma once

#include "import/CheckedLine.h"

#include <QByteArray>
#include <QIODevice>
#include <QString>

namespace xa518 {

/// A refused line as a person with a spreadsheet looks for it.
struct FilaPlanilla {
    qint64 linea = 0; ///< its number in the file, from 1; 0 for the file as a whole
    QString campo;    ///< what the field at fault is called; empty when the line as a whole is refused
    QString valor;    ///< of that field, as it stands in the file
    Codigo codigo;    ///< empty when the line bars the whole file
    QString motivo;
    QString archivo;
};

/// Whoever takes the refused lines of a run, one after the other.
class DestinoDeRechazos {
  public:
    DestinoDeRechazos() = default;
    DestinoDeRechazos(const DestinoDeRechazos&) = delete;
    DestinoDeRechazos& operator=(const DestinoDeRechazos&) = delete;
    virtual ~DestinoDeRechazos() = default;

    virtual void Anota(const FilaPlanilla& fila) = 0;
};

/// The refused lines of one or more runs as comma-separated values, written as they come. UTF-8 with its mark, CRLF and
/// quotes, so that a spreadsheet opens it as it is. A value that a spreadsheet would take for a formula gets an
/// apostrophe in front.
class PlanillaErrores final : public DestinoDeRechazos {
  public:
    /// Writes the head of the columns. The device must outlive the object.
    explicit PlanillaErrores(QIODevice& destino);

    void Anota(const FilaPlanilla& fila) override;

    /// False when the device failed: rows may be missing.
    [[nodiscard]] bool EstaCompleta() const { return m_completa; }

  private:
    void Escribe(const QByteArray& bytes);

    QIODevice& m_destino;
    bool m_completa = true;
};

} // namespace xa518
