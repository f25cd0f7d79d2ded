#include "core/ui/Ficha.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QWidget>

namespace ui {

bool EsperaVista(VistaHtml& vista, long vueltas) {
    for (long i = 0; i < vueltas && vista.ReadyState() != 4; ++i) QCoreApplication::processEvents();
    return vista.ReadyState() == 4;
}

QString Ficha(const std::vector<FilaFicha>& filas, const QString& cierre) {
    QString html = QStringLiteral(
        "<HTML><HEAD><STYLE type='text/css'>table {font-family:tahoma, verdana, arial;font-size:8pt;} "
        ".td1 {font-weight:bold; text-align:right;}</STYLE></HEAD>"
        "<BODY leftmargin=20 topmargin=10 marginwidth=0 marginheight=0>"
        "<table border=0 cellspacing=1>");
    for (const auto& [etiqueta, valor] : filas)
        html += QStringLiteral("<tr><td class=td1>") + etiqueta + QStringLiteral("</td><td>") + valor.toHtmlEscaped() +
                QStringLiteral("</td></tr>");
    return html + cierre;
}

void ColocaFicha(QBoxLayout& disposicion, VistaHtml* vista) {
    QWidget* w = vista ? vista->widget() : nullptr;
    if (!w) return;
    w->setObjectName(QStringLiteral("Web"));
    w->setMinimumHeight(110);
    w->setMaximumHeight(130);
    disposicion.addWidget(w);
}

void EscribeFicha(VistaHtml& vista, const std::vector<FilaFicha>& filas, const QString& cierre, long vueltas) {
    vista.Navigate(QStringLiteral("about:blank"));
    EsperaVista(vista, vueltas);
    vista.DocumentOpen();
    vista.DocumentWrite(Ficha(filas, cierre));
    vista.DocumentClose();
}

}  // namespace ui
