#include "end_to_end/TwoDeclarations.h"

#include <QCoreApplication>

#include <cstdio>

/// Saves two contents of one declaration in turn until it is killed; writes a line before the first save and after
/// each.
int main(int argc, char* argv[]) {
    using namespace xa518;
    const QCoreApplication aplicacion(argc, argv);
    const std::unique_ptr<Base> base = Base::Abre(QCoreApplication::arguments().at(1));
    const auto avisa = [] {
        std::puts("listo");
        std::fflush(stdout);
    };
    avisa();
    for (bool uno = false;; uno = !uno) {
        prueba::GrabaContenido(*base, uno ? prueba::Contenido::Uno : prueba::Contenido::Otro);
        avisa();
    }
}
