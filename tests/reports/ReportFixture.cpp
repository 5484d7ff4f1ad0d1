#include "reports/ReportFixture.h"

namespace xa518::prueba {

ProcesoConInformes::ProcesoConInformes(Formularios formularios, QString numero)
    : proceso(reloj, std::move(formularios), std::move(numero)) {
    proceso.sysUser = u"ANA"_s;
    proceso.rutaRPT = base.Carpeta() + u"/RPT"_s;
    QDir().mkpath(proceso.rutaRPT);
    proceso.baseDatos = Base::Abre(base.Ruta());
}

QStringList Libreta::Textos(int pagina) const {
    QStringList textos;
    for (const Comando& comando : comandos) {
        const auto* texto = std::get_if<TextoEnPagina>(&comando);
        if (texto != nullptr && texto->pagina == pagina)
            textos.append(texto->texto);
    }
    return textos;
}

QString Libreta::TextoEn(int x, int y, int pagina) const {
    for (const Comando& comando : comandos) {
        const auto* texto = std::get_if<TextoEnPagina>(&comando);
        if (texto != nullptr && texto->x == x && texto->y == y && texto->pagina == pagina)
            return texto->texto;
    }
    return {};
}

} // namespace xa518::prueba
