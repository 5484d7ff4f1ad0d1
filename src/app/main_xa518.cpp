#include "app/CommandIcons.h"
#include "app/Forms.h"
#include "app/MDIFrm.h"
#include "app/ModuleForms.h"
#include "app/ModuleHelp.h"
#include "family/Configuration.h"
#include "family/Process.h"
#include "family/SentCopies.h"
#include "family/Startup.h"
#include "form518/Form0518.h"
#include "platform/Clock.h"
#include "platform/Display.h"
#include "platform/ParentConsole.h"
#include "platform/SingleInstance.h"
#include "platform/SystemWindows.h"
#include "widgets/Application.h"
#include "widgets/FileDialogBoxes.h"
#include "widgets/NoticeBoxes.h"

#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>

using namespace xa518;

namespace {

int Corre(Proceso& proceso, Avisos& avisos, const std::optional<ClaveDeclaracion>& rectificada) {
    DialogosDeArchivoEnPantalla archivos;
    const std::unique_ptr<VentanasDelSistema> ventanas = VentanasReales();
    InstanciaUnica instancia(QCoreApplication::applicationFilePath()); // held until the process ends
    if (!PuedeArrancar(*ventanas, instancia, avisos))
        return EXIT_FAILURE;
    const ArchivoPerfil perfil = PerfilCompartido();
    MDIFrm principal(proceso, avisos, perfil, FormasDelModulo(proceso, avisos, archivos, perfil));
    if (!principal.Carga())
        return EXIT_FAILURE;
    if (rectificada)
        QTimer::singleShot(0, &principal, Protegido([&principal, &rectificada] { principal.Rectifica(*rectificada); }));
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char* argv[]) {
    const ConsolaQueLlama consola;
    QStringList argumentos;
    std::transform(argv + 1, argv + argc, std::back_inserter(argumentos),
                   [](const char* argumento) { return QString::fromLocal8Bit(argumento); });
    if (const auto respuesta = RespuestaSinVentana(argumentos)) {
        std::fputs(qUtf8Printable(*respuesta), stdout);
        return EXIT_SUCCESS;
    }
    PrefiereX11(); // the launcher's window can't be found otherwise
    if (!HayPantalla()) {
        std::fputs("No hay una pantalla en la que abrir el módulo. Sin pantalla, use xa518-lote.\n", stderr);
        return EXIT_FAILURE;
    }
    AvisosEnPantalla avisos;
    const Aplicacion aplicacion(argc, argv, avisos);
    QGuiApplication::setWindowIcon(IconoDelModulo());
    const RelojSistema reloj;
    Proceso proceso(reloj, FormulariosConocidos(), kNumFormulario);
    try {
        return Corre(proceso, avisos, CopiaPorRectificar(argumentos, kNumFormulario));
    } catch (...) {
        AtiendeFallaEnCurso(); // a start that fails past the opening of the base: there is nothing to go on with
        return EXIT_FAILURE;
    }
}
