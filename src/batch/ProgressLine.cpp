#include "batch/ProgressLine.h"

#include <QTextStream>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kRitmoMs = 200;

int Porcentaje(const AvanceImportacion& avance) {
    return avance.bytesTotal > 0 ? static_cast<int>(avance.bytesLeidos * 100 / avance.bytesTotal) : 100;
}

} // namespace

LineaDeAvance::LineaDeAvance(QTextStream& terminal, bool muestra) : m_terminal(terminal), m_muestra(muestra) {
    m_reloj.start();
}

LineaDeAvance::~LineaDeAvance() {
    if (m_escrita)
        m_terminal << u"\r\x1b[K"_s << Qt::flush;
}

bool LineaDeAvance::Sigue(const AvanceImportacion& avance) {
    if (!m_muestra || m_reloj.elapsed() < kRitmoMs)
        return true;
    m_reloj.restart();
    Escribe(u"%1 %  %2 Transferidos  %3 Rechazados"_s.arg(Porcentaje(avance), 3)
                .arg(avance.transferidos)
                .arg(avance.rechazados));
    return true;
}

void LineaDeAvance::Dice(const QString& fase) {
    if (m_muestra)
        Escribe(fase + u"..."_s);
}

void LineaDeAvance::Escribe(const QString& linea) {
    m_escrita = true;
    m_terminal << u"\r\x1b[K"_s << linea << Qt::flush;
}

} // namespace xa518
