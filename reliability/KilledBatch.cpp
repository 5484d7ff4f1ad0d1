// xa518-lote over a disk that counts what the engine changes in the base and its journal, and at a chosen change ends
// the program on the spot: for systems where nothing can be put between a program and the C library. FALLA_MODO says
// what happens ("cuenta", "mata" before the change, "rasga" in the midst of it), FALLA_EN at which one.

#include "batch/Batch.h"
#include "family/Configuration.h"

#include <QCoreApplication>
#include <QTextStream>

#include <sqlite3.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#endif

using namespace xa518;

namespace {

void Muere() {
#ifdef Q_OS_WIN
    TerminateProcess(GetCurrentProcess(), 9);
#else
    std::raise(SIGKILL);
#endif
}

/// The changes of the whole process so far.
class Cuenta {
  public:
    /// `mitad` does the first half of the change before a death.
    template <typename Mitad>
    void Cambia(Mitad mitad) {
        if (++m_cambios != m_en || m_modo == "cuenta")
            return;
        if (m_modo == "rasga")
            mitad();
        Muere();
    }
    void Cambia() {
        Cambia([] {});
    }
    void Informa() const {
        if (m_modo == "cuenta")
            std::fprintf(stderr, "cambios %d\n", m_cambios);
    }

  private:
    QByteArray m_modo = qgetenv("FALLA_MODO");
    int m_en = qEnvironmentVariableIntValue("FALLA_EN");
    int m_cambios = 0;
};

Cuenta& LaCuenta() {
    static Cuenta cuenta;
    return cuenta;
}

/// An open file of the engine; its own one lies right behind.
struct Archivo {
    sqlite3_file base;
    bool cuenta; ///< it is the base or its journal
};

sqlite3_file* Suyo(sqlite3_file* archivo) {
    return reinterpret_cast<sqlite3_file*>(reinterpret_cast<Archivo*>(archivo) + 1);
}

Cuenta* CuentaDe(sqlite3_file* archivo) {
    return reinterpret_cast<Archivo*>(archivo)->cuenta ? &LaCuenta() : nullptr;
}

int Escribe(sqlite3_file* archivo, const void* bytes, int cuantos, sqlite3_int64 desde) {
    sqlite3_file* suyo = Suyo(archivo);
    if (Cuenta* cuenta = CuentaDe(archivo))
        cuenta->Cambia([&] { suyo->pMethods->xWrite(suyo, bytes, cuantos / 2, desde); });
    return suyo->pMethods->xWrite(suyo, bytes, cuantos, desde);
}

int Recorta(sqlite3_file* archivo, sqlite3_int64 largo) {
    if (Cuenta* cuenta = CuentaDe(archivo))
        cuenta->Cambia();
    return Suyo(archivo)->pMethods->xTruncate(Suyo(archivo), largo);
}

int Sincroniza(sqlite3_file* archivo, int como) {
    if (Cuenta* cuenta = CuentaDe(archivo))
        cuenta->Cambia();
    return Suyo(archivo)->pMethods->xSync(Suyo(archivo), como);
}

/// Of the first version, without shared memory or a map of the file, either of which would change it unseen.
const sqlite3_io_methods* Metodos() {
    static const sqlite3_io_methods metodos = {
        .iVersion = 1,
        .xClose = [](sqlite3_file* a) { return Suyo(a)->pMethods->xClose(Suyo(a)); },
        .xRead = [](sqlite3_file* a, void* b, int n,
                    sqlite3_int64 i) { return Suyo(a)->pMethods->xRead(Suyo(a), b, n, i); },
        .xWrite = Escribe,
        .xTruncate = Recorta,
        .xSync = Sincroniza,
        .xFileSize = [](sqlite3_file* a, sqlite3_int64* n) { return Suyo(a)->pMethods->xFileSize(Suyo(a), n); },
        .xLock = [](sqlite3_file* a, int n) { return Suyo(a)->pMethods->xLock(Suyo(a), n); },
        .xUnlock = [](sqlite3_file* a, int n) { return Suyo(a)->pMethods->xUnlock(Suyo(a), n); },
        .xCheckReservedLock = [](sqlite3_file* a, int* n) { return Suyo(a)->pMethods->xCheckReservedLock(Suyo(a), n); },
        .xFileControl = [](sqlite3_file* a, int q, void* p) { return Suyo(a)->pMethods->xFileControl(Suyo(a), q, p); },
        .xSectorSize = [](sqlite3_file* a) { return Suyo(a)->pMethods->xSectorSize(Suyo(a)); },
        .xDeviceCharacteristics = [](sqlite3_file* a) { return Suyo(a)->pMethods->xDeviceCharacteristics(Suyo(a)); },
        .xShmMap = nullptr,
        .xShmLock = nullptr,
        .xShmBarrier = nullptr,
        .xShmUnmap = nullptr,
        .xFetch = nullptr,
        .xUnfetch = nullptr,
    };
    return &metodos;
}

sqlite3_vfs* Real(sqlite3_vfs* disco) {
    return static_cast<sqlite3_vfs*>(disco->pAppData);
}

int Abre(sqlite3_vfs* disco, const char* nombre, sqlite3_file* archivo, int como, int* hecho) {
    auto* nuevo = reinterpret_cast<Archivo*>(archivo);
    nuevo->cuenta = (como & (SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_MAIN_JOURNAL)) != 0;
    nuevo->base.pMethods = nullptr;
    const int codigo = Real(disco)->xOpen(Real(disco), nombre, Suyo(archivo), como, hecho);
    if (codigo == SQLITE_OK)
        nuevo->base.pMethods = Metodos();
    return codigo;
}

int Borra(sqlite3_vfs* disco, const char* nombre, int sincroniza) {
    const auto borra = [&] { return Real(disco)->xDelete(Real(disco), nombre, sincroniza); };
    LaCuenta().Cambia(borra); // there is no half of it: it is done, and nobody hears of it
    return borra();
}

/// Every base that the process opens from here on lies on it.
void PonDisco() {
    static sqlite3_vfs disco = *sqlite3_vfs_find(nullptr);
    disco.pAppData = sqlite3_vfs_find(nullptr);
    disco.zName = "contado";
    disco.pNext = nullptr;
    disco.szOsFile += static_cast<int>(sizeof(Archivo));
    disco.xOpen = Abre;
    disco.xDelete = Borra;
    if (sqlite3_vfs_register(&disco, 1) != SQLITE_OK)
        throw std::runtime_error("no disk to count on");
}

} // namespace

int main(int argc, char* argv[]) {
    const QCoreApplication aplicacion(argc, argv);
    PonDisco();
    QTextStream salida(stdout);
    QTextStream errores(stderr);
    const int codigo = EjecutaLote(QCoreApplication::arguments(), {PerfilCompartido(), salida, errores, false});
    LaCuenta().Informa();
    return codigo;
}
