#include "app/DeclarationLists.h"
#include "data/Base.h"
#include "declaration/ClientGrid.h"
#include "declaration/Save.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

using namespace xa518;
using namespace Qt::StringLiterals;

namespace {

/// Saves what the work tables hold, paid in cash, as a rectification.
void Graba(Base& base, const ClaveDeclaracion& clave) {
    Declaracion declaracion;
    declaracion.clave = clave;
    RefrescaTotales(base, declaracion);
    declaracion.montos.Cambia(410, declaracion.montos.Texto(405));
    declaracion.pago = {u"E"_s, {}, {}, declaracion.montos.ImportePagar()};
    declaracion.rectifica = u"1"_s;
    (void)GrabaDeclaracion(base, declaracion, QDate(2026, 11, 21));
}

} // namespace

/// Given a base, "graba" or "elimina", a RUC and a period, does that to that declaration and nothing else.
int main(int argc, char* argv[]) {
    const QCoreApplication aplicacion(argc, argv);
    const QStringList argumentos = QCoreApplication::arguments();
    try {
        const std::unique_ptr<Base> base = Base::Abre(argumentos.at(1));
        const ClaveDeclaracion clave{argumentos.at(3), argumentos.at(4), kNumFormulario, false, {}};
        if (argumentos.at(2) == u"graba")
            Graba(*base, clave);
        else
            EliminaDeclaracion(*base, clave);
    } catch (const Error& error) {
        std::fprintf(stderr, "%s (error %d)\n", qUtf8Printable(error.Texto()), error.Numero());
        return 3;
    }
    return EXIT_SUCCESS;
}
