#include "launcher/FileHolders.h"

#include <QCoreApplication>
#include <QDir>

#include <qt_windows.h>

#include <restartmanager.h>

#include <array>
#include <vector>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// A question to the service that tells installers who has a file open.
class Consulta {
  public:
    explicit Consulta(const QString& ruta) {
        std::array<wchar_t, CCH_RM_SESSION_KEY + 1> clave{};
        if (RmStartSession(&m_sesion, 0, clave.data()) != ERROR_SUCCESS)
            return;
        m_abierta = true;
        const std::wstring archivo = QDir::toNativeSeparators(ruta).toStdWString();
        const wchar_t* archivos = archivo.c_str();
        m_sabe = RmRegisterResources(m_sesion, 1, &archivos, 0, nullptr, 0, nullptr) == ERROR_SUCCESS;
    }
    Consulta(const Consulta&) = delete;
    Consulta& operator=(const Consulta&) = delete;
    ~Consulta() {
        if (m_abierta)
            RmEndSession(m_sesion);
    }

    /// Asked again while they grow in number.
    [[nodiscard]] std::vector<RM_PROCESS_INFO> Programas() const {
        std::vector<RM_PROCESS_INFO> programas;
        UINT hay = 0;
        DWORD falla = m_sabe ? ERROR_MORE_DATA : ERROR_SUCCESS;
        while (falla == ERROR_MORE_DATA) {
            programas.resize(hay);
            UINT caben = hay;
            DWORD motivo = 0;
            falla = RmGetList(m_sesion, &hay, &caben, programas.data(), &motivo);
            programas.resize(falla == ERROR_SUCCESS ? caben : 0);
        }
        return programas;
    }

  private:
    DWORD m_sesion = 0;
    bool m_abierta = false;
    bool m_sabe = false;
};

} // namespace

QStringList ProgramasQueUsan(const QString& ruta) {
    QStringList nombres;
    for (const RM_PROCESS_INFO& programa : Consulta(ruta).Programas()) {
        const DWORD proceso = programa.Process.dwProcessId;
        if (proceso != GetCurrentProcessId())
            nombres.append(u"%1 (%2)"_s.arg(QString::fromWCharArray(programa.strAppName)).arg(proceso));
    }
    return nombres;
}

bool SeDejaReemplazar(const QString& ruta) {
    constexpr DWORD kConTodos = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const std::wstring archivo = QDir::toNativeSeparators(ruta).toStdWString();
    const HANDLE abierto = CreateFileW(archivo.c_str(), DELETE, kConTodos, nullptr, OPEN_EXISTING, 0, nullptr);
    if (abierto == INVALID_HANDLE_VALUE)
        return GetLastError() != ERROR_SHARING_VIOLATION;
    CloseHandle(abierto);
    return true;
}

} // namespace xa518
