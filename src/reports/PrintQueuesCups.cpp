#include "reports/PrintQueues.h"

#include <QLibrary>

#include <sys/socket.h>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

// As the print system's library lays them out; its number, 2, stands for that.
struct OpcionCups {
    char* nombre;
    char* valor;
};
struct DestinoCups {
    char* nombre;
    char* instancia;
    int esPredeterminado;
    int cuantas;
    OpcionCups* opciones;
};

/// Looked up when something is printed, so that the program also runs on a desk without a print system. Nothing there.
template <typename Firma>
Firma* FuncionCups(const char* nombre) {
    return reinterpret_cast<Firma*>(QLibrary::resolve(u"cups"_s, 2, nombre));
}

} // namespace

bool RespondeElServicio() {
    constexpr int kEsperaEnMs = 3000;
    const auto servidor = FuncionCups<const char*()>("cupsServer");
    const auto puerto = FuncionCups<int()>("ippPort");
    const auto cifrado = FuncionCups<int()>("cupsEncryption");
    const auto conecta = FuncionCups<void*(const char*, int, void*, int, int, int, int, int*)>("httpConnect2");
    const auto cierra = FuncionCups<void(void*)>("httpClose");
    if (!servidor || !puerto || !cifrado || !conecta || !cierra)
        return false;
    void* conexion = conecta(servidor(), puerto(), nullptr, AF_UNSPEC, cifrado(), 1, kEsperaEnMs, nullptr);
    if (conexion)
        cierra(conexion);
    return conexion != nullptr;
}

EstadoCola EstadoDeCola(const QString& nombre) {
    const auto busca = FuncionCups<DestinoCups*(void*, const char*, const char*)>("cupsGetNamedDest");
    const auto opcion = FuncionCups<const char*(const char*, int, OpcionCups*)>("cupsGetOption");
    const auto suelta = FuncionCups<void(int, DestinoCups*)>("cupsFreeDests");
    if (!busca || !opcion || !suelta)
        return EstadoCola::Lista;
    const QStringList partes = nombre.split(u'/'); // queue and, seldom, the set of options that it is used with
    const QByteArray instancia = partes.value(1).toLocal8Bit();
    DestinoCups* destino =
        busca(nullptr, partes[0].toLocal8Bit().constData(), instancia.isEmpty() ? nullptr : instancia.constData());
    if (!destino) // the service answers for it when it gets the job
        return EstadoCola::Lista;
    const QByteArray recibe = opcion("printer-is-accepting-jobs", destino->cuantas, destino->opciones);
    const QByteArray estado = opcion("printer-state", destino->cuantas, destino->opciones);
    suelta(1, destino);
    return recibe == "false" ? EstadoCola::NoRecibe : estado == "5" ? EstadoCola::Detenida : EstadoCola::Lista;
}

/// The toolkit sends the job and drops the answer, which stays with the thread as the library's last one.
QString RechazoDelUltimo() {
    constexpr int kPrimerError = 0x400;
    const auto ultimo = FuncionCups<int()>("cupsLastError");
    const auto texto = FuncionCups<const char*()>("cupsLastErrorString");
    return ultimo && texto && ultimo() >= kPrimerError ? QString::fromUtf8(texto()) : QString();
}

} // namespace xa518
