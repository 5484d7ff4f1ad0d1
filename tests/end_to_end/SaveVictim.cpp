#include "end_to_end/TwoDeclarations.h"

#include <QCoreApplication>

#include <cstdio>

/// Saves two contents of one declaration in turn until it is killed; says so once the first save begins.
int main(int argc, char* argv[]) {
    using namespace xa518;
    const QCoreApplication aplicacion(argc, argv);
    const std::unique_ptr<Base> base = Base::Abre(QCoreApplication::arguments().at(1));
    std::puts("listo");
    std::fflush(stdout);
    for (bool uno = false;; uno = !uno)
        prueba::GrabaContenido(*base, uno ? prueba::Contenido::Uno : prueba::Contenido::Otro);
}
