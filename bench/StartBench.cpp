#include "Measure.h"
#include "app/MDIFrm.h"
#include "family/Configuration.h"
#include "family/Process.h"
#include "family/SchemaSteps.h"
#include "form518/Form0518.h"
#include "platform/Clock.h"
#include "support/TemporaryBase.h"
#include "widgets/Application.h"
#include "widgets/NoticeBoxes.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <functional>

using namespace xa518;
using namespace Qt::StringLiterals;

namespace {

constexpr int kVeces = 11;

/// Ends the program as soon as its window has been painted and nothing is left to do.
int HastaQuedarLista(Aplicacion& aplicacion) {
    QTimer::singleShot(0, &aplicacion, &QCoreApplication::quit);
    return QCoreApplication::exec();
}

int CorreVacia(Aplicacion& aplicacion) {
    QMainWindow ventana;
    ventana.resize(960, 620);
    ventana.show();
    return HastaQuedarLista(aplicacion);
}

int CorreModulo(Aplicacion& aplicacion, Avisos& avisos, const QString& rutaIni) {
    const RelojSistema reloj;
    Proceso proceso(reloj, {Formulario0518()}, kNumFormulario);
    MDIFrm ventana(proceso, avisos, ArchivoPerfil(rutaIni), {});
    return ventana.Carga() ? HastaQuedarLista(aplicacion) : EXIT_FAILURE;
}

/// What a start needs: a base of the shipped tables, a workgroup file, a profile file.
QString Instala(const prueba::BaseTemporal& base) {
    const QString carpeta = base.Carpeta() + u'/';
    const ArchivoPerfil perfil(carpeta + kArchivoIni);
    base->Ejecuta(u"PRAGMA user_version=%1"_s.arg(VersionDelEsquema({Formulario0518()})));
    perfil.Escribe(kSeccionOpciones, u"SysPath", carpeta);
    perfil.Escribe(kSeccionOpciones, u"DBPath", carpeta);
    perfil.Escribe(kSeccionOpciones, u"DBName", u"XA.DB");
    GrupoTrabajo(carpeta + kArchivoGrupo).Admite(CuentaConfigurada(perfil));
    return perfil.Ruta();
}

/// The median in seconds.
double Cronometra(const std::function<void()>& trabajo) {
    QList<double> tiempos;
    for (int vez = 0; vez < kVeces; ++vez) {
        QElapsedTimer reloj;
        reloj.start();
        trabajo();
        tiempos.append(static_cast<double>(reloj.nsecsElapsed()) / 1e9);
    }
    std::sort(tiempos.begin(), tiempos.end());
    return tiempos[kVeces / 2];
}

/// Starts this program anew as the one or the other and waits for its end.
void Arranca(const QString& programa, const QStringList& argumentos) {
    if (QProcess::execute(programa, argumentos) != EXIT_SUCCESS)
        qFatal("a start failed");
}

void Compara(const QString& programa) {
    const prueba::BaseTemporal base;
    const QString ini = Instala(base);
    const GrupoTrabajo grupo(base.Carpeta() + u'/' + kArchivoGrupo);
    const Cuenta cuenta = CuentaConfigurada(ArchivoPerfil(ini));
    const double vacia = Cronometra([&] { Arranca(programa, {u"vacia"_s}); });
    const double entera = Cronometra([&] { Arranca(programa, {u"modulo"_s, ini}); });
    const double clave = Cronometra([&] { grupo.Verifica(cuenta); });
    std::printf("bare Qt window            %6.3f s\n", vacia);
    std::printf("account check             %6.3f s\n", clave);
    std::printf("module beyond that check  %6.3f s   %.2f x the bare window\n", entera - clave,
                (entera - clave) / vacia);
    medida::Resume("Start of the module beyond the account check", entera - clave, " s", "0.5 s");
    medida::Resume("The same", (entera - clave) / vacia, " x a bare window's start", "-");
}

} // namespace

/// Start of the module to a usable window, process and all, against a bare window of the same toolkit.
int main(int argc, char* argv[]) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QString papel = QString::fromLocal8Bit(argc > 1 ? argv[1] : "");
    if (papel.isEmpty()) {
        const QCoreApplication aplicacion(argc, argv);
        Compara(QCoreApplication::applicationFilePath());
        return EXIT_SUCCESS;
    }
    AvisosEnPantalla avisos;
    Aplicacion aplicacion(argc, argv, avisos);
    return papel == u"vacia" ? CorreVacia(aplicacion)
                             : CorreModulo(aplicacion, avisos, QString::fromLocal8Bit(argv[2]));
}
