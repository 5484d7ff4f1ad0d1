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
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTimer>

#include <sodium.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>

using namespace xa518;
using namespace Qt::StringLiterals;

namespace {

constexpr int kVeces = 21;

/// Ends the program as soon as its window has been painted and nothing is left to do.
int HastaQuedarLista(Aplicacion& aplicacion) {
    QCoreApplication::processEvents();
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

/// A workgroup file that admits the account, whose check takes no time. What a real one takes swings by more than the
/// whole of a start, and would drown what is measured here.
void AdmiteSinEspera(const QString& ruta, const Cuenta& cuenta) {
    std::array<char, crypto_pwhash_STRBYTES> hash{};
    const QByteArray clave = cuenta.clave.toUtf8();
    if (sodium_init() < 0 ||
        crypto_pwhash_str_alg(hash.data(), clave.constData(), static_cast<unsigned long long>(clave.size()),
                              crypto_pwhash_OPSLIMIT_MIN, crypto_pwhash_MEMLIMIT_MIN,
                              crypto_pwhash_ALG_ARGON2ID13) != 0)
        qFatal("no account");
    const QJsonObject cuentas{{cuenta.usuario, QString::fromLatin1(hash.data())}};
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::WriteOnly) || archivo.write(QJsonDocument(cuentas).toJson()) < 0)
        qFatal("no workgroup file");
}

/// What a start needs: a base of the shipped tables, a workgroup file, a profile file.
QString Instala(const prueba::BaseTemporal& base) {
    const QString carpeta = base.Carpeta() + u'/';
    const ArchivoPerfil perfil(carpeta + kArchivoIni);
    base->PonVersionDelEsquema(VersionDelEsquema({Formulario0518()}));
    perfil.Escribe(kSeccionOpciones, u"SysPath", carpeta);
    perfil.Escribe(kSeccionOpciones, u"DBPath", carpeta);
    perfil.Escribe(kSeccionOpciones, u"DBName", u"XA.DB");
    AdmiteSinEspera(carpeta + kArchivoGrupo, CuentaConfigurada(perfil));
    return perfil.Ruta();
}

double Segundos(const std::function<void()>& trabajo) {
    QElapsedTimer reloj;
    reloj.start();
    trabajo();
    return static_cast<double>(reloj.nsecsElapsed()) / 1e9;
}

double Mediana(QList<double> tiempos) {
    std::sort(tiempos.begin(), tiempos.end());
    return tiempos[tiempos.size() / 2];
}

/// Starts this program anew as the one or the other and waits for its end.
void Arranca(const QString& programa, const QStringList& argumentos) {
    if (QProcess::execute(programa, argumentos) != EXIT_SUCCESS)
        qFatal("a start failed");
}

double Comprobacion(const QString& carpeta, const Cuenta& cuenta) {
    const GrupoTrabajo grupo(carpeta + u"/real-"_s + kArchivoGrupo);
    grupo.Admite(cuenta);
    QList<double> tiempos;
    for (int vez = 0; vez < kVeces; ++vez)
        tiempos.append(Segundos([&] { grupo.Verifica(cuenta); }));
    return Mediana(tiempos);
}

/// In turns, so that other programs on the machine disturb both alike.
void Compara(const QString& programa) {
    const prueba::BaseTemporal base;
    const QString ini = Instala(base);
    QList<double> vacias;
    QList<double> enteras;
    for (int vez = 0; vez < kVeces; ++vez) {
        vacias.append(Segundos([&] { Arranca(programa, {u"vacia"_s}); }));
        enteras.append(Segundos([&] { Arranca(programa, {u"modulo"_s, ini}); }));
    }
    const double vacia = Mediana(vacias);
    const double entera = Mediana(enteras);
    std::printf("bare Qt window            %6.4f s\n", vacia);
    std::printf("account check             %6.4f s\n",
                Comprobacion(base.Carpeta(), CuentaConfigurada(ArchivoPerfil(ini))));
    std::printf("module beyond that check  %6.4f s   %.2f x the bare window\n", entera, entera / vacia);
    medida::Resume("Start of the module beyond the account check", entera, " s", "0.5 s");
    medida::Resume("The same", entera / vacia, " x a bare window's start", "1.5");
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
