#include "reports/PageCommands.h"

#include <QStringEncoder>

#include <algorithm>
#include <array>
#include <charconv>

namespace xa518 {

namespace {

/// Writes at the end of a text that has room for what comes.
class Final {
  public:
    Final(QByteArray& salida, qsizetype sitio) : m_salida(&salida) {
        const qsizetype inicio = salida.size();
        salida.resize(inicio + sitio);
        m_lugar = salida.data() + inicio;
    }
    Final(const Final&) = delete;
    Final& operator=(const Final&) = delete;
    ~Final() { m_salida->truncate(m_lugar - m_salida->constData()); }

    void Pon(QByteArrayView bytes) { m_lugar = std::copy(bytes.begin(), bytes.end(), m_lugar); }
    void Pon(int numero) {
        m_lugar = std::to_chars(m_lugar, m_lugar + kCifras, numero).ptr;
        *m_lugar++ = '|';
    }
    void Pon(QStringView texto);

    static constexpr qsizetype kCifras = 12; ///< of a number, with its sign and its bar
    static constexpr qsizetype kBytesPorLetra = 3;

  private:
    QByteArray* m_salida;
    char* m_lugar;
};

/// No byte of a letter beyond ASCII looks like one of these.
char SinRomperLaLinea(char c) {
    const auto codigo = static_cast<unsigned char>(c);
    return codigo < 32 || codigo == 127 || codigo == '|' ? ' ' : c;
}

void Final::Pon(QStringView texto) {
    QStringEncoder codificador(QStringEncoder::Utf8);
    char* const fin = codificador.appendToBuffer(m_lugar, texto);
    std::transform(m_lugar, fin, m_lugar, SinRomperLaLinea);
    m_lugar = fin;
    *m_lugar++ = '|';
}

void AgregaTextoEn(QByteArray& salida, QByteArrayView palabra, const TextoEnPagina& texto) {
    constexpr qsizetype kNumeros = 4;
    constexpr qsizetype kPalabras = 32;
    Final final(salida, kPalabras + kNumeros * Final::kCifras + Final::kBytesPorLetra * texto.texto.size());
    final.Pon(palabra);
    final.Pon(texto.x);
    final.Pon(texto.y);
    final.Pon(QStringView(texto.texto));
    final.Pon(texto.negrita ? "True|" : "False|");
    final.Pon(texto.tamano);
    final.Pon(texto.pagina);
}

struct Escritura {
    QByteArray& salida;

    void operator()(const Etiqueta& etiqueta) const {
        const QByteArray palabra = PalabraDe(etiqueta.clase);
        salida += "<!" + palabra + "!>" + etiqueta.valor.toUtf8() + "<!/" + palabra + "!>";
    }
    void operator()(const TextoEnPagina& texto) const { AgregaTextoEn(salida, "pPos|", texto); }
    void operator()(const TextoVertical& vertical) const { AgregaTextoEn(salida, "pPosVerti|", vertical.texto); }
    void operator()(const Cuadro& cuadro) const {
        const auto numeros = {cuadro.x1, cuadro.y1, cuadro.x2, cuadro.y2, cuadro.pagina};
        const QByteArrayView palabra("pCuadro|");
        Final final(salida, palabra.size() + qsizetype(numeros.size()) * Final::kCifras);
        final.Pon(palabra);
        for (const int numero : numeros)
            final.Pon(numero);
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
