#include "widgets/FieldFilters.h"

#include "values/ObjetoUtil.h"
#include "values/Text.h"
#include "widgets/FieldKeys.h"

#include <QLineEdit>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPunto = '.';

QChar Letra(int tecla) {
    return QChar(static_cast<char16_t>(tecla));
}

int SiEsDigito(int tecla) {
    return tecla == kRetroceso || EsDigito(Letra(tecla)) ? tecla : 0;
}

/// What stays of the text when the next key replaces what is selected.
QString LoQueQueda(const QLineEdit& campo) {
    QString texto = campo.text();
    if (campo.hasSelectedText())
        texto.remove(campo.selectionStart(), campo.selectedText().size());
    return texto;
}

/// With a selection the text is tried that comes of the key: behind its first place it takes no letter. Without one
/// nothing is tried, which is wanted, and the check before storing finds the letter.
bool CabeLetraPorPosicion(int tecla, const EstadoSerie& estado) {
    if (estado.haySeleccion) {
        const QString conTecla = QString(estado.queda).insert(estado.posicion, Letra(tecla));
        if (std::any_of(conTecla.begin() + 1, conTecla.end(), EsLetra))
            return false;
    }
    return estado.queda.isEmpty() || !EsLetra(estado.queda.front()) || estado.posicion != 0;
}

} // namespace

QString PasanNumeros() {
    return u"Sólo números"_s;
}

int FiltraTeclaNumero(int tecla, bool conPunto) {
    return ObjetoUtil::EsTeclaNumero(tecla) || (conPunto && tecla == kPunto) ? tecla : 0;
}

int FiltraTeclaMayuscula(int tecla) {
    return Letra(tecla).toUpper().unicode();
}

void SoloDigitos(QLineEdit& campo, const QString& pasan) {
    FiltraTeclas(campo, SiEsDigito, pasan);
}

void SoloNumero(QLineEdit& campo) {
    FiltraTeclas(
        campo, [](int tecla) { return FiltraTeclaNumero(tecla); }, PasanNumeros());
}

void SoloNombre(QLineEdit& campo) {
    const auto filtro = [](int tecla) {
        const int mayuscula = FiltraTeclaMayuscula(tecla);
        return ObjetoUtil::EsTeclaValida(mayuscula) ? mayuscula : 0;
    };
    FiltraTeclas(campo, filtro, u"Sólo letras, sin tilde ni eñe, y números"_s);
}

void SoloMonto(QLineEdit& campo, std::function<LimitesDeMonto()> limites) {
    const auto filtro = [&campo, limites = std::move(limites)](int tecla) {
        const int numero = FiltraTeclaNumero(tecla, true);
        const bool tienePunto = LoQueQueda(campo).contains(u'.');
        if (numero == kPunto && tienePunto)
            return 0;
        const LimitesDeMonto largos = limites ? limites() : LimitesDeMonto{};
        LimitaTecleo(campo, numero == kPunto || tienePunto ? largos.conPunto : largos.sinPunto);
        return numero;
    };
    FiltraTeclas(campo, filtro, u"Sólo números; los decimales van con punto"_s);
}

int FiltraTeclaSerie(int tecla, const EstadoSerie& estado, bool conLetras) {
    const int mayuscula = FiltraTeclaMayuscula(tecla);
    if (mayuscula == kPunto)
        return 0;
    if (!conLetras)
        return SiEsDigito(mayuscula);
    if (mayuscula != kRetroceso && !CabeLetraPorPosicion(mayuscula, estado))
        return 0;
    return ObjetoUtil::EsTeclaValida(mayuscula) ? mayuscula : 0;
}

void SoloSerie(QLineEdit& campo, std::function<bool()> conLetras) {
    EntrarSiHayTexto(campo);
    const auto filtro = [&campo, conLetras](int tecla) {
        const bool elegido = campo.hasSelectedText();
        const int posicion = elegido ? campo.selectionStart() : campo.cursorPosition();
        return FiltraTeclaSerie(tecla, {LoQueQueda(campo), elegido, posicion}, conLetras());
    };
    FiltraTeclas(campo, filtro, [conLetras = std::move(conLetras)] {
        return conLetras() ? u"Sólo números y, al comienzo, una letra"_s : PasanNumeros();
    });
}

} // namespace xa518
