#include "platform/ParentConsole.h"

#include <qt_windows.h>

#include <cstdio>

namespace xa518 {

namespace {

/// Without a console of its own a program has no output but one that its caller has led somewhere.
bool EstaDirigida(DWORD cual) {
    const HANDLE salida = GetStdHandle(cual);
    return salida != nullptr && salida != INVALID_HANDLE_VALUE && GetFileType(salida) != FILE_TYPE_UNKNOWN;
}

void Dirige(DWORD cual, FILE* salida, bool yaDirigida) {
    if (!yaDirigida && std::freopen("CONOUT$", "w", salida) == nullptr)
        SetStdHandle(cual, nullptr); // nowhere to write: as before
}

} // namespace

ConsolaQueLlama::ConsolaQueLlama() {
    const bool salida = EstaDirigida(STD_OUTPUT_HANDLE);
    const bool errores = EstaDirigida(STD_ERROR_HANDLE);
    if (AttachConsole(ATTACH_PARENT_PROCESS) != 0) {
        Dirige(STD_OUTPUT_HANDLE, stdout, salida);
        Dirige(STD_ERROR_HANDLE, stderr, errores);
    }
    m_codigosDeAntes = GetConsoleOutputCP();
    if (m_codigosDeAntes != 0)
        SetConsoleOutputCP(CP_UTF8);
}

ConsolaQueLlama::~ConsolaQueLlama() {
    std::fflush(nullptr);
    if (m_codigosDeAntes != 0)
        SetConsoleOutputCP(m_codigosDeAntes);
}

} // namespace xa518
