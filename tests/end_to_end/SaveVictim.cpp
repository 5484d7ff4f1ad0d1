#include "app/DeclarationLists.h"
#include "end_to_end/TwoDeclarations.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

using namespace xa518;
using namespace Qt::StringLiterals;

namespace {

/// Saves two contents of one declaration in turn until it is killed; writes a line before the first save and after
/// each.
[[noreturn]] void GrabaSinFin(Base& base) {
    const auto avisa = [] {
        std::puts("listo");
        std::fflush(stdout);
    };
    avisa();
    for (bool uno = false;; uno = !uno) {
        prueba::GrabaContenido(base, uno ? prueba::Contenido::Uno : prueba::Contenido::Otro);
        avisa();
    }
}

} // namespace

/// With a base alone it saves without end; with "graba" or "elimina", a RUC and a period it does that once.
int main(int argc, char* argv[]) {
    const QCoreApplication aplicacion(argc, argv);
    const QStringList argumentos = QCoreApplication::arguments();
    try {
        const std::unique_ptr<Base> base = Base::Abre(argumentos.at(1));
        if (argumentos.size() == 2)
            GrabaSinFin(*base);
        const ClaveDeclaracion clave{argumentos.at(3), argumentos.at(4), kNumFormulario, false, {}};
        if (argumentos.at(2) == u"graba")
            prueba::GrabaTrabajo(*base, clave, u"E"_s, u"1"_s);
        else
            EliminaDeclaracion(*base, clave);
    } catch (const Error& error) {
        std::fprintf(stderr, "%s (error %d)\n", qUtf8Printable(error.Texto()), error.Numero());
        return 3;
    }
    return EXIT_SUCCESS;
}
