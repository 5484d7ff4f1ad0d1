#include "widgets/HourGlass.h"

#include <QCursor>
#include <QGuiApplication>

#include <utility>

namespace xa518 {

RelojDeArena::RelojDeArena() {
    QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
}

RelojDeArena::~RelojDeArena() {
    Suelta();
}

void RelojDeArena::Suelta() {
    if (std::exchange(m_puesto, false))
        QGuiApplication::restoreOverrideCursor();
}

} // namespace xa518
