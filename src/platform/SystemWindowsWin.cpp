#include "platform/SystemWindows.h"

#include <qt_windows.h>

#include <array>

namespace xa518 {

namespace {

constexpr int kLargoDelNombre = 257;

HWND DeManejador(Manejador ventana) {
    return reinterpret_cast<HWND>(ventana); // NOLINT(*-reinterpret-cast, *-int-to-ptr)
}

BOOL CALLBACK Anota(HWND ventana, LPARAM lista) {
    auto* todas = reinterpret_cast<QList<Manejador>*>(lista); // NOLINT(*-reinterpret-cast, *-int-to-ptr)
    todas->append(reinterpret_cast<Manejador>(ventana));      // NOLINT(*-reinterpret-cast)
    return TRUE;
}

class VentanasWindows final : public VentanasDelSistema {
  public:
    QList<Manejador> Superiores() override {
        QList<Manejador> todas;
        EnumWindows(&Anota, reinterpret_cast<LPARAM>(&todas)); // NOLINT(*-reinterpret-cast)
        return todas;
    }

    bool EsVisible(Manejador ventana) override { return IsWindowVisible(DeManejador(ventana)) != FALSE; }

    QString Titulo(Manejador ventana) override {
        const int largo = GetWindowTextLengthW(DeManejador(ventana));
        if (largo <= 0)
            return {};
        std::wstring texto(static_cast<size_t>(largo) + 1, L'\0');
        const int copiados = GetWindowTextW(DeManejador(ventana), texto.data(), largo + 1);
        return QString::fromWCharArray(texto.data(), copiados);
    }

    QString Clase(Manejador ventana) override {
        std::array<wchar_t, kLargoDelNombre> texto{};
        const int copiados = GetClassNameW(DeManejador(ventana), texto.data(), kLargoDelNombre);
        return QString::fromWCharArray(texto.data(), copiados);
    }

    void PideCierre(Manejador ventana) override { SendMessageW(DeManejador(ventana), WM_SYSCOMMAND, SC_CLOSE, 0); }
};

} // namespace

std::unique_ptr<VentanasDelSistema> VentanasReales() {
    return std::make_unique<VentanasWindows>();
}

void PrefiereX11() {}

} // namespace xa518
