#include "end_to_end/XScreen.h"

#include <xcb/xcb.h>

#include <cstdlib>

namespace xa518::prueba {

using namespace Qt::StringLiterals;

PantallaX::~PantallaX() {
    if (m_conexion)
        xcb_disconnect(m_conexion);
    m_servidor.kill();
    m_servidor.waitForFinished();
}

bool PantallaX::Enciende() {
    m_servidor.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"1280x800x24"_s});
    if (!m_servidor.waitForReadyRead(20000))
        return false;
    qputenv("DISPLAY", ":" + m_servidor.readLine().trimmed());
    m_conexion = xcb_connect(nullptr, nullptr);
    return xcb_connection_has_error(m_conexion) == 0;
}

void PantallaX::PonVentana(const QString& titulo) {
    const QByteArray bytes = titulo.toUtf8();
    const xcb_window_t ventana = xcb_generate_id(m_conexion);
    xcb_create_window(m_conexion, XCB_COPY_FROM_PARENT, ventana,
                      xcb_setup_roots_iterator(xcb_get_setup(m_conexion)).data->root, 0, 0, 50, 50, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_change_property(m_conexion, XCB_PROP_MODE_REPLACE, ventana, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8,
                        static_cast<uint32_t>(bytes.size()), bytes.constData());
    xcb_map_window(m_conexion, ventana);
    std::free(xcb_get_input_focus_reply(m_conexion, xcb_get_input_focus(m_conexion), nullptr)); // until it is done
}

} // namespace xa518::prueba
