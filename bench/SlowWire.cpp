#include "SlowWire.h"

#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <condition_variable>
#include <csignal>
#include <cstdlib>
#include <deque>
#include <mutex>
#include <new>
#include <stdexcept>
#include <thread>

namespace xa518::medida {

struct LineaLenta::Cuenta {
    std::atomic<long> vueltas = 0;
};

namespace {

using Reloj = std::chrono::steady_clock;
constexpr size_t kTrozo = 256 * 1024;
constexpr const char* kSocket = ".s.PGSQL.5432"; // the name that the server's programs look for

sockaddr_un Direccion(const std::filesystem::path& carpeta) {
    sockaddr_un direccion{};
    direccion.sun_family = AF_UNIX;
    const std::string ruta = carpeta / kSocket;
    if (ruta.size() >= sizeof direccion.sun_path)
        throw std::runtime_error("the socket's path is too long");
    ruta.copy(direccion.sun_path, ruta.size());
    return direccion;
}

int Enchufe() {
    const int enchufe = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (enchufe < 0)
        throw std::runtime_error("no socket");
    return enchufe;
}

const sockaddr* Generica(const sockaddr_un& direccion) {
    return reinterpret_cast<const sockaddr*>(&direccion);
}

bool EscribeTodo(int enchufe, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t escritos = send(enchufe, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (escritos <= 0)
            return false;
        bytes.remove_prefix(static_cast<size_t>(escritos));
    }
    return true;
}

/// One program's connection. Reading goes on while what was read waits for its time, so that a long stretch of rows
/// pays for the way once, as on a real wire.
class Tramo {
  public:
    Tramo(int programa, int servidor, std::chrono::microseconds demora, std::atomic<long>& vueltas)
        : m_programa(programa), m_servidor(servidor), m_demora(demora), m_vueltas(vueltas) {}

    void Corre() {
        std::thread ida([this] { Recoge(); });
        std::thread entrega([this] { Entrega(); });
        Devuelve();
        shutdown(m_programa, SHUT_RDWR);
        ida.join();
        entrega.join();
        close(m_programa);
        close(m_servidor);
    }

  private:
    struct Trozo {
        Reloj::time_point cuando;
        std::string bytes;
    };

    void Recoge() {
        std::string bytes(kTrozo, '\0');
        ssize_t leidos = 0;
        while ((leidos = recv(m_programa, bytes.data(), bytes.size(), 0)) > 0)
            Encola(bytes.substr(0, static_cast<size_t>(leidos)));
        Encola({}); // the end
    }

    void Encola(std::string bytes) {
        const std::scoped_lock guarda(m_cerrojo);
        m_camino.push_back({Reloj::now() + m_demora, std::move(bytes)});
        m_hay.notify_one();
    }

    void Entrega() {
        for (;;) {
            std::unique_lock guarda(m_cerrojo);
            m_hay.wait(guarda, [this] { return !m_camino.empty(); });
            const Trozo trozo = std::move(m_camino.front());
            m_camino.pop_front();
            guarda.unlock();
            std::this_thread::sleep_until(trozo.cuando);
            m_preguntado = true;
            if (trozo.bytes.empty() || !EscribeTodo(m_servidor, trozo.bytes))
                break;
        }
        shutdown(m_servidor, SHUT_RDWR);
    }

    void Devuelve() {
        std::string bytes(kTrozo, '\0');
        ssize_t leidos = 0;
        while ((leidos = recv(m_servidor, bytes.data(), bytes.size(), 0)) > 0) {
            if (m_preguntado.exchange(false))
                ++m_vueltas;
            if (!EscribeTodo(m_programa, std::string_view(bytes).substr(0, static_cast<size_t>(leidos))))
                return;
        }
    }

    int m_programa;
    int m_servidor;
    std::chrono::microseconds m_demora;
    std::atomic<long>& m_vueltas;
    std::atomic<bool> m_preguntado = false;
    std::mutex m_cerrojo;
    std::condition_variable m_hay;
    std::deque<Trozo> m_camino;
};

[[noreturn]] void Atiende(int escucha, const sockaddr_un& servidor, std::chrono::microseconds demora,
                          std::atomic<long>& vueltas) {
    for (;;) {
        const int programa = accept4(escucha, nullptr, nullptr, SOCK_CLOEXEC);
        if (programa < 0)
            _exit(EXIT_FAILURE);
        std::thread([=, &vueltas] {
            const int suyo = Enchufe();
            if (connect(suyo, Generica(servidor), sizeof servidor) == 0)
                Tramo(programa, suyo, demora, vueltas).Corre();
        }).detach();
    }
}

std::filesystem::path CarpetaPropia() {
    std::string nombre = std::filesystem::temp_directory_path() / "xa-linea-XXXXXX";
    if (mkdtemp(nombre.data()) == nullptr)
        throw std::runtime_error("no folder for the socket");
    return nombre;
}

} // namespace

LineaLenta::LineaLenta(const std::filesystem::path& servidor, std::chrono::microseconds demora)
    : m_carpeta(CarpetaPropia()) {
    void* memoria = mmap(nullptr, sizeof(Cuenta), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memoria == MAP_FAILED)
        throw std::runtime_error("no shared memory");
    m_cuenta = new (memoria) Cuenta;
    const sockaddr_un propia = Direccion(m_carpeta);
    const sockaddr_un suya = Direccion(servidor);
    const int escucha = Enchufe();
    if (bind(escucha, Generica(propia), sizeof propia) != 0 || listen(escucha, SOMAXCONN) != 0)
        throw std::runtime_error("the wire can't be laid");
    m_proceso = fork();
    if (m_proceso == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        Atiende(escucha, suya, demora, m_cuenta->vueltas);
    }
    close(escucha);
}

LineaLenta::~LineaLenta() {
    kill(m_proceso, SIGKILL);
    waitpid(m_proceso, nullptr, 0);
    munmap(m_cuenta, sizeof(Cuenta));
    std::error_code sinMas;
    std::filesystem::remove_all(m_carpeta, sinMas);
}

long LineaLenta::Vueltas() const {
    return m_cuenta->vueltas;
}

} // namespace xa518::medida
