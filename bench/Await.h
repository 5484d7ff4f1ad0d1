#pragma once

#include "platform/WorkThread.h"

#include <QApplication>
#include <QWidget>

#include <algorithm>

namespace xa518::medida {

/// Turns the event loop until no window has work beside it any more.
inline void EsperaTrabajos() {
    const auto trabaja = [](const QWidget* ventana) {
        return ventana->findChild<QObject*>(HiloDeTrabajo::kEnMarcha) != nullptr;
    };
    const auto alguna = [&] { return std::ranges::any_of(QApplication::topLevelWidgets(), trabaja); };
    while (alguna())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QApplication::processEvents();
}

} // namespace xa518::medida
