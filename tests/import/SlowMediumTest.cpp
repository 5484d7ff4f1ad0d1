#include "import/ImportFixture.h"
#include "import/frmTransferencia.h"
#include "support/FileDialogScript.h"
#include "support/FormDriver.h"

#include <QElapsedTimer>

#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <thread>

namespace {

/// So long takes each reading of a medium that waits: a share on a tired network, a disk that spins up.
constexpr std::chrono::milliseconds kEspera(400);

std::atomic<int> esperas = 0; // readings that have waited

bool EsDelMedio(int archivo) {
    const QString enlace = u"/proc/self/fd/%1"_s.arg(archivo);
    return QFileInfo(enlace).symLinkTarget().endsWith(u".TXT"_s);
}

} // namespace

/// Takes the place of the system's own in this program.
extern "C" ssize_t read(int archivo, void* destino, size_t bytes) {
    if (EsDelMedio(archivo)) {
        std::this_thread::sleep_for(kEspera);
        ++esperas;
    }
    return syscall(SYS_read, archivo, destino, bytes);
}

namespace {

TEST(SlowMedium, TheWindowOfTheImportGoesOnAnswering) {
    Escenario escenario;
    escenario.Escribe(LineaDe().toUtf8() + '\n');
    AvisosDePrueba avisos;
    DialogosDeArchivoDePrueba archivos;
    const ArchivoPerfil perfil(escenario.base.Carpeta() + u"/XA000.INI"_s);
    perfil.Escribe(u"Importar", u"Carpeta", escenario.base.Carpeta());
    frmTransferencia forma(escenario.proceso, avisos, escenario.clave, {.perfil = perfil, .archivos = archivos});
    Muestra(forma);
    avisos.Espera(u"Archivo : 051820990518018202610.TXT transferido"_s);

    qint64 mayor = 0;
    QElapsedTimer desde;
    QTimer latido;
    QObject::connect(&latido, &QTimer::timeout, [&] { mayor = std::max(mayor, desde.restart()); });
    latido.start(5);
    desde.start();
    Clic(forma, u"cmdTransferir"_s);
    EXPECT_GT(esperas, 1);
    EXPECT_LT(mayor, kEspera.count() / 2) << "the window stood still with the medium";
}

} // namespace
