#include "batch/Batch.h"

#include "app/Configuration.h"

#include <QCoreApplication>
#include <QTextStream>

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

} // namespace

int main(int argc, char* argv[]) {
    const QCoreApplication aplicacion(argc, argv);
    QTextStream salida(stdout);
    QTextStream errores(stderr);
    return xa518::EjecutaLote(QCoreApplication::arguments(),
                              {xa518::PerfilCompartido(), salida, errores, ErroresEnTerminal()});
}
