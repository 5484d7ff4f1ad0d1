#include "data/Base.h"
#include "family/ChangeLog.h"
#include "family/DeclarationKey.h"
#include "family/StoredDeclaration.h"
#include "form518/Form0518.h"
#include "platform/Clock.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

using namespace xa518;

/// Deletes the registered declaration of a base, a RUC and a period, as the module does: no command line does that.
int main(int argc, char* argv[]) {
    const QCoreApplication aplicacion(argc, argv);
    const QStringList argumentos = QCoreApplication::arguments();
    try {
        const std::unique_ptr<Base> base = Base::Abre(argumentos.at(1));
        const ClaveDeclaracion clave{.ruc = Ruc(argumentos.at(2)),
                                     .periodo = Periodo::DeTabla(argumentos.at(3)).value(),
                                     .formulario = kNumFormulario};
        EliminaDeclaracion(*base, Formulario0518(), clave, FirmaDe(QStringLiteral("ANA"), RelojSistema()));
    } catch (const Error& error) {
        std::fprintf(stderr, "%s (error %d)\n", qUtf8Printable(error.Texto()), error.Numero());
        return 3;
    }
    return EXIT_SUCCESS;
}
