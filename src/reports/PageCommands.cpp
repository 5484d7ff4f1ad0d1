#include "reports/PageCommands.h"

#include <QStringEncoder>

#include <algorithm>
#include <array>
#include <charconv>

namespace xa518 {

namespace {

void AgregaNumero(QByteArray& salida, int numero) {
    std::array<char, 16> cifras{};
    const char* const fin = std::to_chars(cifras.data(), cifras.data() + cifras.size(), numero).ptr;
    salida.append(cifras.data(), fin - cifras.data());
    salida += '|';
}

/// No byte of a letter beyond ASCII looks like one of these.
char SinRomperLaLinea(char c) {
    const auto codigo = static_cast<unsigned char>(c);
    return codigo < 32 || codigo == 127 || codigo == '|' ? ' ' : c;
}

void AgregaTexto(QByteArray& salida, const QString& texto) {
    QStringEncoder codificador(QStringEncoder::Utf8);
    const qsizetype inicio = salida.size();
    salida.resize(inicio + codificador.requiredSpace(texto.size()));
    const char* fin = codificador.appendToBuffer(salida.data() + inicio, texto);
    salida.truncate(fin - salida.constData());
    char* texto8 = salida.data() + inicio;
    std::transform(texto8, texto8 + (salida.size() - inicio), texto8, SinRomperLaLinea);
    salida += '|';
}

void AgregaCampos(QByteArray& salida, const TextoEnPagina& texto) {
    AgregaNumero(salida, texto.x);
    AgregaNumero(salida, texto.y);
    AgregaTexto(salida, texto.texto);
    salida += texto.negrita ? "True|" : "False|";
    AgregaNumero(salida, texto.tamano);
    AgregaNumero(salida, texto.pagina);
}

struct Escritura {
    QByteArray& salida;

    void operator()(const Etiqueta& etiqueta) const {
        const QByteArray palabra = PalabraDe(etiqueta.clase);
        salida += "<!" + palabra + "!>" + etiqueta.valor.toUtf8() + "<!/" + palabra + "!>";
    }
    void operator()(const TextoEnPagina& texto) const {
        salida += "pPos|";
        AgregaCampos(salida, texto);
    }
    void operator()(const TextoVertical& vertical) const {
        salida += "pPosVerti|";
        AgregaCampos(salida, vertical.texto);
    }
    void operator()(const Cuadro& cuadro) const {
        salida += "pCuadro|";
        for (const int numero : {cuadro.x1, cuadro.y1, cuadro.x2, cuadro.y2, cuadro.pagina})
            AgregaNumero(salida, numero);
    }
    void operator()(LineaVacia /*linea*/) const { salida += ' '; }
    void operator()(NuevaHoja /*hoja*/) const { salida += "pNuevaHoja"; }
};

struct Pagina {
    int operator()(const TextoEnPagina& texto) const { return texto.pagina; }
    int operator()(const TextoVertical& vertical) const { return vertical.texto.pagina; }
    int operator()(const Cuadro& cuadro) const { return cuadro.pagina; }
    template <typename Otro>
    int operator()(const Otro& /*comando*/) const {
        return -1;
    }
};

} // namespace

int PaginaDe(const Comando& comando) {
    return std::visit(Pagina(), comando);
}

void AgregaTextoDe(QByteArray& salida, const Comando& comando) {
    std::visit(Escritura{salida}, comando);
    salida += '\n';
}

const char* PalabraDe(Etiqueta::Clase clase) {
    switch (clase) {
    case Etiqueta::Clase::Fuente: return "font";
    case Etiqueta::Clase::Hojas: return "nHojas";
    case Etiqueta::Clase::Orientacion: return "Orientacion";
    case Etiqueta::Clase::Color: return "Color";
    }
    return "";
}

} // namespace xa518
