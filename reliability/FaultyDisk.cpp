// Loaded before the C library by LD_PRELOAD: counts what a program changes in the files of one folder, and at a chosen
// change the disk fails or the program dies. FALLA_CARPETA is the folder, FALLA_MODO what happens, FALLA_EN when.

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <dlfcn.h>
#include <sys/time.h>
#include <unistd.h>

namespace {

std::string Entorno(const char* nombre) {
    const char* valor = std::getenv(nombre);
    return valor ? valor : "";
}

/// The files of the folder: which change this is, and what it meets.
class Disco {
  public:
    ~Disco() {
        if (m_modo == "cuenta")
            std::fprintf(stderr, "cambios %ld\n", m_cambios.load());
    }

    [[nodiscard]] bool EsSuyo(const char* ruta) const {
        return !m_carpeta.empty() && std::strncmp(ruta, m_carpeta.c_str(), m_carpeta.size()) == 0;
    }
    [[nodiscard]] bool EsSuyo(int archivo) const {
        char ruta[4096];
        const ssize_t largo = readlink(("/proc/self/fd/" + std::to_string(archivo)).c_str(), ruta, sizeof ruta - 1);
        ruta[largo < 0 ? 0 : largo] = '\0';
        return EsSuyo(ruta);
    }

    /// Counts a change. True when it fails, `errno` being set; `mitad` does the first half of it before a death.
    template <typename Mitad>
    [[nodiscard]] bool Falla(Mitad mitad) {
        const long cambio = ++m_cambios;
        if (m_modo == "alarma" && cambio == 1)
            PonAlarma();
        if (cambio == m_en && m_modo == "rasga")
            mitad();
        if (cambio == m_en && (m_modo == "mata" || m_modo == "rasga"))
            std::raise(SIGKILL);
        const bool lleno = (m_modo == "una" && cambio == m_en) || (m_modo == "lleno" && cambio >= m_en);
        if (lleno)
            errno = ENOSPC;
        return lleno;
    }

  private:
    /// Death by the clock, so many microseconds after the first change: SIGALRM ends whoever doesn't handle it.
    void PonAlarma() const {
        const itimerval plazo{{0, 0}, {m_en / 1000000, m_en % 1000000}};
        setitimer(ITIMER_REAL, &plazo, nullptr);
    }

    std::string m_carpeta = Entorno("FALLA_CARPETA");
    std::string m_modo = Entorno("FALLA_MODO");
    long m_en = std::atol(Entorno("FALLA_EN").c_str());
    std::atomic<long> m_cambios = 0;
};

Disco& ElDisco() {
    static Disco disco;
    return disco;
}

template <typename Funcion>
Funcion* Verdadera(const char* nombre) {
    return reinterpret_cast<Funcion*>(dlsym(RTLD_NEXT, nombre));
}

template <typename Archivo>
bool Falla(const Archivo& archivo) {
    return ElDisco().EsSuyo(archivo) && ElDisco().Falla([] {});
}

} // namespace

extern "C" {

ssize_t write(int archivo, const void* datos, size_t cuantos) {
    static auto* const verdadera = Verdadera<ssize_t(int, const void*, size_t)>("write");
    const auto mitad = [&] { (void)verdadera(archivo, datos, cuantos / 2); };
    return ElDisco().EsSuyo(archivo) && ElDisco().Falla(mitad) ? -1 : verdadera(archivo, datos, cuantos);
}

ssize_t pwrite64(int archivo, const void* datos, size_t cuantos, off64_t donde) {
    static auto* const verdadera = Verdadera<ssize_t(int, const void*, size_t, off64_t)>("pwrite64");
    const auto mitad = [&] { (void)verdadera(archivo, datos, cuantos / 2, donde); };
    return ElDisco().EsSuyo(archivo) && ElDisco().Falla(mitad) ? -1 : verdadera(archivo, datos, cuantos, donde);
}

ssize_t pwrite(int archivo, const void* datos, size_t cuantos, off_t donde) {
    return pwrite64(archivo, datos, cuantos, donde);
}

int ftruncate64(int archivo, off64_t largo) noexcept {
    static auto* const verdadera = Verdadera<int(int, off64_t)>("ftruncate64");
    return Falla(archivo) ? -1 : verdadera(archivo, largo);
}

int ftruncate(int archivo, off_t largo) noexcept {
    return ftruncate64(archivo, largo);
}

int fsync(int archivo) {
    static auto* const verdadera = Verdadera<int(int)>("fsync");
    return Falla(archivo) ? -1 : verdadera(archivo);
}

int fdatasync(int archivo) {
    static auto* const verdadera = Verdadera<int(int)>("fdatasync");
    return Falla(archivo) ? -1 : verdadera(archivo);
}

int unlink(const char* ruta) noexcept {
    static auto* const verdadera = Verdadera<int(const char*)>("unlink");
    return Falla(ruta) ? -1 : verdadera(ruta);
}
}
