#include "data/PostgresConnection.h"

#include <QtGlobal>

#ifdef Q_OS_WIN
#include <winsock2.h>
#else
#include <poll.h>
#endif

namespace xa518 {

bool EsperaEnLinea(const PGconn* conexion, Espera que, std::chrono::milliseconds cuanto) {
#ifdef Q_OS_WIN
    WSAPOLLFD linea{};
    linea.fd = static_cast<SOCKET>(PQsocket(conexion));
    linea.events = que == Espera::Lectura ? POLLRDNORM : POLLWRNORM;
    return WSAPoll(&linea, 1, static_cast<INT>(cuanto.count())) > 0;
#else
    pollfd linea{};
    linea.fd = PQsocket(conexion);
    linea.events = que == Espera::Lectura ? POLLIN : POLLOUT;
    return poll(&linea, 1, static_cast<int>(cuanto.count())) > 0;
#endif
}

} // namespace xa518
