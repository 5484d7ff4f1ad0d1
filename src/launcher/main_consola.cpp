#include "launcher/CommandLine.h"
#include "platform/Clock.h"

#include <QCoreApplication>
#include <QTextStream>

#include <cstdio>

int main(int argc, char* argv[]) {
    const QCoreApplication aplicacion(argc, argv);
    QTextStream salida(stdout);
    QTextStream errores(stderr);
    const xa518::RelojSistema reloj;
    return xa518::EjecutaConsola(QCoreApplication::arguments(), salida, errores,
                                 xa518::EntornoConsola::DelSistema(reloj));
}
