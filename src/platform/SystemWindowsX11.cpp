#include "platform/SystemWindows.h"

#include <xcb/xcb.h>

#include <QByteArray>

#include <cstdlib>
#include <cstring>
#include <optional>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr uint32_t kMaximoDePropiedad = 1U << 16U; // in words of four bytes
constexpr uint32_t kMinimizada = 3;                // IconicState of WM_STATE

struct Libera {
    void operator()(void* respuesta) const { std::free(respuesta); }
    void operator()(xcb_connection_t* conexion) const { xcb_disconnect(conexion); }
};

template <typename T>
using Respondido = std::unique_ptr<T, Libera>;

struct Propiedad {
    xcb_atom_t tipo;
    QByteArray bytes;

    /// The property's values when they come in 32 bits, as windows and states do.
    [[nodiscard]] QList<uint32_t> Palabras() const {
        const qsizetype cuantas = bytes.size() / qsizetype{sizeof(uint32_t)};
        QList<uint32_t> palabras(cuantas);
        std::memcpy(palabras.data(), bytes.constData(), static_cast<size_t>(cuantas) * sizeof(uint32_t));
        return palabras;
    }
};

/// A window that disappears meanwhile answers with nothing and so is neither visible nor titled.
class VentanasX11 final : public VentanasDelSistema {
  public:
    VentanasX11() : m_conexion(xcb_connect(nullptr, nullptr)) {}

    QList<Manejador> Superiores() override;
    bool EsVisible(Manejador ventana) override;
    QString Titulo(Manejador ventana) override;
    QString Clase(Manejador ventana) override;
    void PideCierre(Manejador ventana) override;

  private:
    [[nodiscard]] xcb_atom_t Atomo(QByteArrayView nombre);
    [[nodiscard]] std::optional<Propiedad> Lee(xcb_window_t ventana, xcb_atom_t propiedad);
    [[nodiscard]] bool HayGestor(xcb_window_t raiz);
    [[nodiscard]] QList<uint32_t> HijasDe(xcb_window_t raiz);
    [[nodiscard]] QList<uint32_t> SuperioresDe(xcb_window_t raiz);

    std::unique_ptr<xcb_connection_t, Libera> m_conexion;
};

xcb_window_t DeManejador(Manejador ventana) {
    return static_cast<xcb_window_t>(ventana);
}

xcb_atom_t VentanasX11::Atomo(QByteArrayView nombre) {
    const auto pedido = xcb_intern_atom(m_conexion.get(), 0, static_cast<uint16_t>(nombre.size()), nombre.constData());
    const Respondido<xcb_intern_atom_reply_t> atomo(xcb_intern_atom_reply(m_conexion.get(), pedido, nullptr));
    return atomo ? atomo->atom : xcb_atom_t{XCB_ATOM_NONE};
}

std::optional<Propiedad> VentanasX11::Lee(xcb_window_t ventana, xcb_atom_t propiedad) {
    const auto pedido =
        xcb_get_property(m_conexion.get(), 0, ventana, propiedad, XCB_GET_PROPERTY_TYPE_ANY, 0, kMaximoDePropiedad);
    const Respondido<xcb_get_property_reply_t> valor(xcb_get_property_reply(m_conexion.get(), pedido, nullptr));
    if (!valor || valor->type == XCB_ATOM_NONE)
        return std::nullopt;
    const auto* bytes = static_cast<const char*>(xcb_get_property_value(valor.get()));
    return Propiedad{valor->type, QByteArray(bytes, xcb_get_property_value_length(valor.get()))};
}

/// The list of clients stays behind when a window manager dies: it counts only while the manager's own window lives.
bool VentanasX11::HayGestor(xcb_window_t raiz) {
    const xcb_atom_t marca = Atomo("_NET_SUPPORTING_WM_CHECK");
    const auto deRaiz = Lee(raiz, marca);
    if (!deRaiz || deRaiz->Palabras().isEmpty())
        return false;
    const auto propia = Lee(deRaiz->Palabras().first(), marca);
    return propia && propia->Palabras() == deRaiz->Palabras();
}

QList<uint32_t> VentanasX11::HijasDe(xcb_window_t raiz) {
    const auto pedido = xcb_query_tree(m_conexion.get(), raiz);
    const Respondido<xcb_query_tree_reply_t> arbol(xcb_query_tree_reply(m_conexion.get(), pedido, nullptr));
    if (!arbol)
        return {};
    const xcb_window_t* hijas = xcb_query_tree_children(arbol.get());
    return {hijas, hijas + xcb_query_tree_children_length(arbol.get())};
}

QList<uint32_t> VentanasX11::SuperioresDe(xcb_window_t raiz) {
    const auto lista = HayGestor(raiz) ? Lee(raiz, Atomo("_NET_CLIENT_LIST")) : std::nullopt;
    return lista ? lista->Palabras() : HijasDe(raiz);
}

QList<Manejador> VentanasX11::Superiores() {
    if (xcb_connection_has_error(m_conexion.get()))
        return {};
    QList<Manejador> todas;
    auto pantalla = xcb_setup_roots_iterator(xcb_get_setup(m_conexion.get()));
    for (; pantalla.rem > 0; xcb_screen_next(&pantalla))
        for (const uint32_t ventana : SuperioresDe(pantalla.data->root))
            todas.append(ventana);
    return todas;
}

/// A window that its manager took off the screen, minimised or on another desktop, is still a visible one in the
/// sense meant here; one that its program hid is not.
bool VentanasX11::EsVisible(Manejador ventana) {
    const auto pedido = xcb_get_window_attributes(m_conexion.get(), DeManejador(ventana));
    const Respondido<xcb_get_window_attributes_reply_t> rasgos(
        xcb_get_window_attributes_reply(m_conexion.get(), pedido, nullptr));
    if (!rasgos || rasgos->map_state != XCB_MAP_STATE_UNMAPPED)
        return rasgos != nullptr;
    const auto estado = Lee(DeManejador(ventana), Atomo("WM_STATE"));
    return estado && estado->Palabras().value(0) == kMinimizada;
}

QString VentanasX11::Titulo(Manejador ventana) {
    const xcb_atom_t utf8 = Atomo("UTF8_STRING");
    if (const auto nombre = Lee(DeManejador(ventana), Atomo("_NET_WM_NAME")); nombre && !nombre->bytes.isEmpty())
        return QString::fromUtf8(nombre->bytes);
    const auto nombre = Lee(DeManejador(ventana), XCB_ATOM_WM_NAME);
    if (!nombre)
        return {};
    return nombre->tipo == utf8 ? QString::fromUtf8(nombre->bytes) : QString::fromLatin1(nombre->bytes);
}

/// WM_CLASS holds two names, each ended by a zero byte: the instance's and the class's.
QString VentanasX11::Clase(Manejador ventana) {
    const auto nombres = Lee(DeManejador(ventana), XCB_ATOM_WM_CLASS);
    return nombres ? QString::fromLatin1(nombres->bytes.split('\0').value(1)) : QString();
}

void VentanasX11::PideCierre(Manejador ventana) {
    xcb_client_message_event_t aviso{};
    aviso.response_type = XCB_CLIENT_MESSAGE;
    aviso.format = 32;
    aviso.window = DeManejador(ventana);
    aviso.type = Atomo("WM_PROTOCOLS");
    aviso.data.data32[0] = Atomo("WM_DELETE_WINDOW");
    xcb_send_event(m_conexion.get(), 0, aviso.window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&aviso)); // NOLINT(*-reinterpret-cast): the wire format of an event
    xcb_flush(m_conexion.get());
}

} // namespace

std::unique_ptr<VentanasDelSistema> VentanasReales() {
    return std::make_unique<VentanasX11>();
}

void PrefiereX11() {
    const bool enWayland = qEnvironmentVariableIsSet("WAYLAND_DISPLAY") && qEnvironmentVariableIsSet("DISPLAY");
    const QByteArray elegida = qgetenv("QT_QPA_PLATFORM"); // a session may ask for Wayland, where no window is found
    if (enWayland && (elegida.isEmpty() || elegida.startsWith("wayland")))
        qputenv("QT_QPA_PLATFORM", "xcb");
}

} // namespace xa518
