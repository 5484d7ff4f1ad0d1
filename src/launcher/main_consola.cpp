#include "launcher/CommandLine.h"
#include "launcher/Display.h"
#include "launcher/FrmConsola.h"
#include "launcher/PagInformes.h"
#include "platform/Application.h"
#include "platform/Clock.h"
#include "platform/NoticeBoxes.h"
#include "platform/SystemWindows.h"
#include "reports/ShowReport.h"

#include <QTextStream>

#include <cstdio>

using namespace xa518;
using namespace Qt::StringLiterals;

namespace {

int SinVentana(int argc, char** argv, const EntornoConsola& entorno) {
    const QCoreApplication aplicacion(argc, argv);
    QTextStream salida(stdout);
    QTextStream errores(stderr);
    return EjecutaConsola(QCoreApplication::arguments(), salida, errores, entorno);
}

/// The module's own preview over a report of the list.
VistaDeInforme VistaPreliminar(const Reloj& reloj, Avisos& avisos) {
    return [&reloj, &avisos](QWidget& ventana, const QString& carpeta, const InformeRegistrado& informe) {
        const QString titulo = u"%1 - RUC %2"_s.arg(informe.Titulo(), informe.ruc);
        MuestraReporte({carpeta, informe.usuario, reloj, avisos}, {informe.archivo, titulo, {}}, &ventana);
    };
}

int ConVentana(int argc, char** argv, const EntornoConsola& entorno) {
    AvisosEnPantalla avisos;
    const Aplicacion aplicacion(argc, argv, avisos);
    FrmConsola ventana(entorno, avisos, QCoreApplication::applicationDirPath(), VistaPreliminar(entorno.reloj, avisos));
    ventana.show();
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char* argv[]) {
    const RelojSistema reloj;
    const EntornoConsola entorno = EntornoConsola::DelSistema(reloj);
    PrefiereX11();
    const bool ventana = argc == 1 && HayPantalla();
    return ventana ? ConVentana(argc, argv, entorno) : SinVentana(argc, argv, entorno);
}
