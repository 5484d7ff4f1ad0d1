#include "reports/SpoolReader.h"

#include "values/Text.h"

#include <algorithm>

namespace xa518 {

namespace {

constexpr int kCamposTexto = 6;
constexpr int kCamposCuadro = 5;

/// The place behind the word: behind the first "|", "!>" or "aHoja", whichever ends first.
qsizetype FinDePalabra(QByteArrayView linea) {
    const qsizetype barra = linea.indexOf('|');
    const QByteArrayView tramo = barra < 0 ? linea : linea.first(barra + 1);
    qsizetype fin = tramo.size();
    const auto antes = [&](QByteArrayView marca) {
        const qsizetype lugar = tramo.indexOf(marca);
        if (lugar >= 0)
            fin = std::min(fin, lugar + marca.size());
    };
    antes("!>");
    antes("aHoja");
    return fin;
}

std::optional<Etiqueta::Clase> ClaseDeEtiqueta(QByteArrayView palabra) {
    using enum Etiqueta::Clase;
    for (const Etiqueta::Clase clase : {Fuente, Hojas, Orientacion, Color}) {
        if (palabra == QByteArray("<!") + PalabraDe(clase) + "!>")
            return clase;
    }
    return std::nullopt;
}

/// A whole number; decimals behind a point are left out. Anything else is 0.
int Entero(QByteArrayView campo) {
    constexpr int kMaximo = 1'000'000;
    QByteArrayView digitos = campo.trimmed();
    const bool negativo = digitos.startsWith('-');
    if (negativo || digitos.startsWith('+'))
        digitos = digitos.sliced(1);
    const qsizetype punto = digitos.indexOf('.');
    if (punto > 0)
        digitos.truncate(punto);
    int valor = 0;
    for (const char c : digitos) {
        if (c < '0' || c > '9')
            return 0;
        valor = std::min(valor * 10 + (c - '0'), kMaximo);
    }
    return negativo ? -valor : valor;
}

bool Verdadero(QByteArrayView campo) {
    return campo.trimmed().compare("True", Qt::CaseInsensitive) == 0 || Entero(campo) != 0;
}

} // namespace

LineaSpool::LineaSpool(QByteArrayView linea) : m_resto(linea) {
    CortaPalabra();
    if (m_clase == Clase::Texto || m_clase == Clase::Vertical)
        CortaCampos(kCamposTexto);
    else if (m_clase == Clase::Cuadro)
        CortaCampos(kCamposCuadro);
}

void LineaSpool::CortaPalabra() {
    const qsizetype fin = FinDePalabra(m_resto);
    QByteArrayView palabra = m_resto.first(fin);
    if (palabra.endsWith('|'))
        palabra.chop(1);
    palabra = palabra.trimmed();
    m_resto = m_resto.sliced(fin);
    if (palabra == "pPos") {
        m_clase = Clase::Texto;
    } else if (palabra == "pCuadro") {
        m_clase = Clase::Cuadro;
    } else if (palabra == "pPosVerti") {
        m_clase = Clase::Vertical;
    } else if (palabra == "pNuevaHoja") {
        m_clase = Clase::NuevaHoja;
    } else if (const auto etiqueta = ClaseDeEtiqueta(palabra)) {
        m_clase = Clase::Etiqueta;
        m_etiqueta = *etiqueta;
    }
}

/// Each field up to the next "|". A line with fields missing, as the last one of a truncated file, says nothing.
void LineaSpool::CortaCampos(int cuantos) {
    for (int i = 0; i < cuantos; ++i) {
        const qsizetype barra = m_resto.indexOf('|');
        if (barra < 0) {
            m_clase = Clase::Ninguna;
            return;
        }
        m_campos[static_cast<size_t>(i)] = m_resto.first(barra);
        m_resto = m_resto.sliced(barra + 1);
    }
}

int LineaSpool::Pagina() const {
    return m_clase == Clase::Cuadro ? Entero(m_campos[kCamposCuadro - 1])
           : EsDePagina()           ? Entero(m_campos[kCamposTexto - 1])
                                    : -1;
}

TextoEnPagina LineaSpool::Texto() const {
    const auto& [x, y, texto, negrita, tamano, pagina] = m_campos;
    return {Entero(x), Entero(y), DecodificaCualquiera(texto), Verdadero(negrita), Entero(tamano), Entero(pagina)};
}

std::optional<Comando> LineaSpool::LeeEtiqueta() const {
    const QByteArray cierre = QByteArray("<!/") + PalabraDe(m_etiqueta) + "!>";
    const qsizetype fin = m_resto.indexOf(cierre);
    if (fin < 0)
        return std::nullopt;
    return Etiqueta{m_etiqueta, DecodificaCualquiera(m_resto.first(fin))};
}

std::optional<Comando> LineaSpool::Lee() const {
    switch (m_clase) {
    case Clase::Texto: return Texto();
    case Clase::Vertical: return TextoVertical{Texto()};
    case Clase::NuevaHoja: return NuevaHoja();
    case Clase::Etiqueta: return LeeEtiqueta();
    case Clase::Cuadro: {
        const auto& [x1, y1, x2, y2, pagina, nada] = m_campos;
        return Cuadro{Entero(x1), Entero(y1), Entero(x2), Entero(y2), Entero(pagina)};
    }
    case Clase::Ninguna: break;
    }
    return std::nullopt;
}

} // namespace xa518
