#include "support/FormDriver.h"

#include "platform/WorkThread.h"

#include <QPointer>

#include <algorithm>
#include <cstdlib>

namespace xa518::prueba {

namespace {

bool HayTrabajo() {
    const QWidgetList ventanas = QApplication::topLevelWidgets();
    return std::any_of(ventanas.begin(), ventanas.end(), [](const QWidget* ventana) {
        return ventana->findChild<QObject*>(HiloDeTrabajo::kEnMarcha) != nullptr;
    });
}

} // namespace

void Muestra(QWidget& forma) {
    forma.show();
    forma.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&forma));
    EsperaTrabajos();
}

void EsperaTrabajos() {
    EXPECT_TRUE(QTest::qWaitFor([] { return !HayTrabajo(); }, 30'000)) << "work that doesn't end";
}

namespace {

/// Whether keys arrive in a form, which is brought to the front as a window manager does.
bool TieneElFoco(QWidget& forma) {
    if (!forma.isActiveWindow())
        forma.activateWindow();
    return forma.isActiveWindow() && (forma.focusWidget() == nullptr || forma.focusWidget()->hasFocus());
}

} // namespace

void AlAbrir(QAnyStringView forma, std::function<void(QWidget&)> trabajo) {
    auto* espera = new QTimer(qApp); // goes away by itself
    espera->setObjectName(u"AlAbrir"_s);
    int vueltas = 0;
    QObject::connect(espera, &QTimer::timeout, espera, [=, nombre = forma.toString()]() mutable {
        const QPointer<QWidget> abierta = QApplication::activeModalWidget();
        if (abierta && (nombre.isEmpty() || abierta->objectName() == nombre) && !HayTrabajo() &&
            TieneElFoco(*abierta)) {
            const auto hace = std::move(trabajo);
            delete espera; // the work may wait for another form
            hace(*abierta);
            if (abierta && abierta->isVisible())
                abierta->close();
        } else if (++vueltas == 500) {
            ADD_FAILURE() << "it didn't open: " << nombre.toStdString();
            std::_Exit(EXIT_FAILURE); // some other form is open and nobody would close it
        }
    });
    espera->start(10);
}

void CompruebaAperturas() {
    for (const QTimer* espera : qApp->findChildren<QTimer*>(u"AlAbrir"_s)) {
        ADD_FAILURE() << "a form that was expected didn't open";
        delete espera;
    }
}

} // namespace xa518::prueba
