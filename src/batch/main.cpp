#include "batch/Batch.h"

#include "family/Configuration.h"
#include "platform/ParentConsole.h"

#include <QGuiApplication>
#include <QTextStream>

#include <algorithm>
#include <memory>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

bool ErroresEnTerminal() {
#ifdef Q_OS_WIN
    return _isatty(_fileno(stderr)) != 0;
#else
    return isatty(STDERR_FILENO) != 0;
#endif
}

/// Only print-outs need letters, and nothing here needs a display.
std::unique_ptr<QCoreApplication> HazAplicacion(int& argc, char** argv) {
    const bool imprime = std::any_of(
        argv, argv + argc, [](const char* argumento) { return QByteArrayView(argumento).startsWith("--pdf"); });
    if (!imprime)
        return std::make_unique<QCoreApplication>(argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // A session's folder is looked for, and its absence complained of: a timer's mail should hold faults only.
    const QtMessageHandler anterior =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    auto aplicacion = std::make_unique<QGuiApplication>(argc, argv);
    qInstallMessageHandler(anterior);
    return aplicacion;
}

} // namespace

int main(int argc, char* argv[]) {
    const xa518::ConsolaQueLlama consola;
    const std::unique_ptr<QCoreApplication> aplicacion = HazAplicacion(argc, argv);
    QTextStream salida(stdout);
    QTextStream errores(stderr);
    return xa518::EjecutaLote(QCoreApplication::arguments(),
                              {xa518::PerfilCompartido(), salida, errores, ErroresEnTerminal()});
}
