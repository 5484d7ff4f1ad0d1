#pragma once

#include <QtGlobal>

class QEvent;
class QKeyEvent;
class QObject;

namespace xa518 {

/// Tells the keys that are to do nothing, in whichever window of the program they arrive: a key held down decides once,
/// and Alt with a letter is an access key or nothing. It has to see every event.
class ModalesDeTeclado {
  public:
    [[nodiscard]] bool EsTeclaPerdida(const QObject& receptor, const QEvent& evento);

  private:
    [[nodiscard]] bool EsRepetida(const QKeyEvent& tecla) const;

    int m_soltada = 0;
    quint64 m_alSoltar = 0; ///< when, by the events' own clock; 0 for events that have none
};

} // namespace xa518
