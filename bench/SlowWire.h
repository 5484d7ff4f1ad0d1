#pragma once

#include <chrono>
#include <filesystem>
#include <string>

namespace xa518::medida {

/// A way to the local socket of a server that takes its time: what a program sends arrives that much later, and every
/// answer that it waits for is counted. It works in a process of its own, so that whoever measures doesn't pay for it.
class LineaLenta {
  public:
    /// `servidor` is the folder with the server's socket. Raises `std::runtime_error`, or one of its kinds.
    LineaLenta(const std::filesystem::path& servidor, std::chrono::microseconds demora);
    LineaLenta(const LineaLenta&) = delete;
    LineaLenta& operator=(const LineaLenta&) = delete;
    ~LineaLenta();

    /// What a connection names as its host.
    [[nodiscard]] std::string Carpeta() const { return m_carpeta.string(); }
    /// How often a program has waited for an answer so far; every process that uses the wire sees the same count.
    [[nodiscard]] long Vueltas() const;

  private:
    struct Cuenta;

    std::filesystem::path m_carpeta;
    Cuenta* m_cuenta = nullptr; ///< in memory that the processes share
    int m_proceso = 0;
};

} // namespace xa518::medida
