#pragma once

#include "import/ImportRun.h"

#include <QElapsedTimer>

class QTextStream;

namespace xa518 {

/// A line on the terminal that follows a run at a human pace and says what comes after it; silent elsewhere.
class LineaDeAvance final : public ObservadorImportacion {
  public:
    LineaDeAvance(QTextStream& terminal, bool muestra);
    ~LineaDeAvance() override;
    LineaDeAvance(const LineaDeAvance&) = delete;
    LineaDeAvance& operator=(const LineaDeAvance&) = delete;

    [[nodiscard]] bool Sigue(const AvanceImportacion& avance) override;
    /// What is being done from here on, where nothing counts along.
    void Dice(const QString& fase);

  private:
    void Escribe(const QString& linea);

    QTextStream& m_terminal;
    QElapsedTimer m_reloj;
    bool m_muestra;
    bool m_escrita = false;
};

} // namespace xa518
