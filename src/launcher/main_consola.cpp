#include "app/Forms.h"
#include "form518/Form0518.h"
#include "launcher/CommandLine.h"
#include "launcher/ConsoleIcon.h"
#include "launcher/FrmConsola.h"
#include "launcher/PagInformes.h"
#include "launcher/PagRegistradas.h"
#include "platform/Clock.h"
#include "platform/Display.h"
#include "platform/ParentConsole.h"
#include "platform/SystemWindows.h"
#include "platform/WindowSearch.h"
#include "printouts/ShowChanges.h"
#include "reports/ShowReport.h"
#include "widgets/Application.h"
#include "widgets/FileDialogBoxes.h"
#include "widgets/NoticeBoxes.h"

#include <QTextStream>
#include <QTimer>

#include <cstdio>
#include <cstring>

using namespace xa518;
using namespace Qt::StringLiterals;

namespace {

int SinVentana(int argc, char** argv, const EntornoConsola& entorno) {
    const QCoreApplication aplicacion(argc, argv);
    QTextStream salida(stdout);
    QTextStream errores(stderr);
    return EjecutaConsola(QCoreApplication::arguments(), {salida, errores}, entorno);
}

/// The module's own preview over a report of the list.
VistaDeInforme VistaPreliminar(const Reloj& reloj, Avisos& avisos, DialogosDeArchivo& archivos) {
    return [&reloj, &avisos, &archivos](QWidget& ventana, const QString& carpeta, const InformeRegistrado& informe) {
        const QString titulo = u"%1 - RUC %2"_s.arg(informe.titulo, informe.ruc);
        MuestraReporte({carpeta, informe.usuario, reloj, avisos, archivos}, {informe.archivo, titulo, {}}, ventana);
    };
}

/// What each form compares with its sent copies.
VistasDeCambios VistasDeLosCambios(Avisos& avisos, DialogosDeArchivo& archivos) {
    return {{kNumFormulario, [&avisos, &archivos](QWidget& ventana, const Proceso& proceso, const CopiaEnviada& copia,
                                                  const QString& nombre) {
                 MuestraCambios(ventana, ProcesoAparte(proceso), EntornoDeInformes(proceso, avisos, archivos),
                                {.copia = copia, .nombre = nombre});
             }}};
}

constexpr int kCadaCuanto = 50; ///< milliseconds
constexpr int kVeces = 100;

/// The module looks for the launcher's window when it starts, and ends without it: it is started once the window can be
/// found.
void AbreModuloCuandoSeVea(FrmConsola& ventana, const Formulario& formulario) {
    auto* espera = new QTimer(&ventana);
    QObject::connect(espera, &QTimer::timeout, &ventana, [&ventana, &formulario, espera, veces = 0]() mutable {
        const auto sistema = VentanasReales();
        if (!cWindows(*sistema).CorreApp(ventana.windowTitle()) && ++veces < kVeces)
            return;
        espera->stop();
        ventana.AbreModulo(formulario);
    });
    espera->start(kCadaCuanto);
}

int ConVentana(int argc, char** argv, const EntornoConsola& entorno, bool conModulo) {
    AvisosEnPantalla avisos;
    DialogosDeArchivoEnPantalla archivos;
    const Aplicacion aplicacion(argc, argv, avisos);
    QGuiApplication::setWindowIcon(IconoDeLaConsola());
    FrmConsola ventana(entorno, avisos, QCoreApplication::applicationDirPath(),
                       VistaPreliminar(entorno.reloj, avisos, archivos), VistasDeLosCambios(avisos, archivos));
    ventana.show();
    if (conModulo)
        AbreModuloCuandoSeVea(ventana, entorno.formularios.constFirst());
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char* argv[]) {
    const ConsolaQueLlama salidas;
    const RelojSistema reloj;
    const EntornoConsola entorno = EntornoConsola::DelSistema(reloj, FormulariosConocidos());
    PrefiereX11();
    const bool conModulo = argc == 2 && std::strcmp(argv[1], "--modulo") == 0;
    const bool ventana = (argc == 1 || conModulo) && HayPantalla();
    return ventana ? ConVentana(argc, argv, entorno, conModulo) : SinVentana(argc, argv, entorno);
}
