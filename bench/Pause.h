#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>

namespace xa518::medida {

/// The longest time for which an event loop has turned to nothing since the object was made: what a person would feel
/// as a window that doesn't answer.
class MayorPausa {
  public:
    MayorPausa() {
        m_latido.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_latido, &QTimer::timeout, &m_latido, [this] { Late(); });
        m_latido.start(kRitmo);
        m_desde.start();
    }

    [[nodiscard]] double Milisegundos() {
        Late();
        return static_cast<double>(m_mayor) / 1e6;
    }

  private:
    static constexpr int kRitmo = 2;

    void Late() {
        m_mayor = std::max(m_mayor, m_desde.nsecsElapsed());
        m_desde.restart();
    }

    QTimer m_latido;
    QElapsedTimer m_desde;
    qint64 m_mayor = 0;
};

} // namespace xa518::medida
