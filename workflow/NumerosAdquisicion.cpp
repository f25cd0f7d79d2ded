#include "workflow/NumerosAdquisicion.h"

#include "core/Datos.h"
#include "core/Globales.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "core/vb/Formato.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>

namespace numadq {

void LlenaLista(QListWidget& lista, QString numeros) {
    if (vb::Trim(numeros).isEmpty()) return;
    const QSignalBlocker bloqueo(&lista);
    // The last piece has no "|" behind it and is handed back whole, leaving the text as it was.
    for (;;) {
        const QString numero = Datos::TomaCampo(numeros);
        lista.addItem(numero);
        if (numeros == numero) break;
    }
}

namespace {

void CierraCaptura(QLineEdit& numero, QListWidget& lista, QPushButton& agregar, QPushButton& borrar) {
    numero.setEnabled(false);
    lista.setEnabled(false);
    agregar.setEnabled(false);
    borrar.setEnabled(false);
    const QSignalBlocker bloqueo(&lista);
    lista.clear();
}

}  // namespace

void ReglaEjemplares(QLineEdit& ejemplares, const QString& valorAnterior, const QString& aviso, QLineEdit& numero,
                     QListWidget& lista, QPushButton& agregar, QPushButton& borrar) {
    const double valor = vb::Val(ejemplares.text());
    if (valor < lista.count()) {
        ejemplares.setText(valorAnterior);
        ui::Sistema().MsgBox(aviso, ui::vbExclamation, QStringLiteral("Advertencia"));
    } else if (vb::Trim(ejemplares.text()).isEmpty()) {
        ejemplares.setText(QStringLiteral("0"));
        CierraCaptura(numero, lista, agregar, borrar);
    } else if (valor <= 0) {
        CierraCaptura(numero, lista, agregar, borrar);
    } else {
        numero.setEnabled(true);
        lista.setEnabled(true);
    }
}

void PreparaSiguiente(QLineEdit& numero) {
    const QString texto = numero.text();
    if (vb::IsNumeric(vb::Variant(texto)))
        numero.setText(vb::Format(vb::Variant(vb::Val(texto) + 1), QString(vb::Len(texto), u'0')));
    else
        numero.selectAll();
    numero.setFocus();
}

bool BorraNumero(const QString& numero, const QString& condicion, const QString& textoError) {
    globales::ConsultaDatos& c = globales::Consulta;
    c.Tabla = QStringLiteral("[Adquisiciones Numadqui]");
    c.Clave = QStringLiteral("NoAdquisicion");
    c.Valor = u'\'' + numero + u'\'';
    if (Datos::BorrarX(c, condicion)) return true;
    ui::Sistema().MsgBox(textoError, ui::vbOKOnly, QStringLiteral("Error"));
    return false;
}

}  // namespace numadq
