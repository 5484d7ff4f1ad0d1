#include "Measure.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <exception>
#include <fstream>
#include <stdexcept>
#include <string>

namespace xa518::medida {

namespace {

long DelSistema(const char* archivo, const std::string& clave) {
    std::ifstream estado(archivo);
    for (std::string linea; std::getline(estado, linea);) {
        if (linea.starts_with(clave))
            return std::stol(linea.substr(clave.size()));
    }
    return 0;
}

double Procesador() {
    rusage uso{};
    getrusage(RUSAGE_SELF, &uso);
    const auto segundos = [](const timeval& t) {
        return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) / 1e6;
    };
    return segundos(uso.ru_utime) + segundos(uso.ru_stime);
}

[[noreturn]] void Hijo(int salida, const std::function<std::function<void()>()>& trabajo) {
    int codigo = 1;
    try {
        std::function<void()> cronometrado = trabajo();
        const double antes = Procesador();
        const long escritosAntes = DelSistema("/proc/self/io", "wchar:");
        const auto inicio = std::chrono::steady_clock::now();
        cronometrado();
        const std::chrono::duration<double> duracion = std::chrono::steady_clock::now() - inicio;
        const Medida medida{duracion.count(), Procesador() - antes, DelSistema("/proc/self/status", "VmHWM:"),
                            DelSistema("/proc/self/io", "wchar:") - escritosAntes};
        cronometrado = nullptr; // what the work stands on goes before the process does
        codigo = write(salida, &medida, sizeof medida) == sizeof medida ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    _exit(codigo);
}

} // namespace

void Resume(const char* que, double resultado, const char* unidad, const char* meta) {
    std::printf("| %s | %.2f%s | %s |\n", que, resultado, unidad, meta);
    std::fflush(stdout);
}

Medida Mide(const std::function<std::function<void()>()>& trabajo) {
    int tubo[2];
    if (pipe(tubo) != 0)
        throw std::runtime_error("no pipe");
    std::fflush(nullptr);
    const pid_t hijo = fork();
    if (hijo == 0)
        Hijo(tubo[1], trabajo);
    close(tubo[1]);
    Medida medida;
    const bool leida = hijo > 0 && read(tubo[0], &medida, sizeof medida) == sizeof medida;
    close(tubo[0]);
    int estado = 0;
    if (hijo < 0 || waitpid(hijo, &estado, 0) != hijo || estado != 0 || !leida)
        throw std::runtime_error("the measured process failed");
    return medida;
}

std::vector<Medida> MideDeATurnos(int veces, const std::vector<Medicion>& mediciones) {
    std::vector<Medida> mejores;
    for (const Medicion& medicion : mediciones)
        mejores.push_back(medicion());
    for (int vez = 1; vez < veces; ++vez) {
        for (size_t i = 0; i < mediciones.size(); ++i) {
            const Medida otra = mediciones[i]();
            if (otra.procesador < mejores[i].procesador)
                mejores[i] = otra;
        }
    }
    return mejores;
}

} // namespace xa518::medida
