<?xml version="1.0" encoding="UTF-8"?>
<!-- KORVEL 8 Adquisiciones: material adquirido -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:output method="html" encoding="UTF-8" indent="yes"/>
  <!-- Column names are compared without regard to case: the query decides how they are written. -->
  <xsl:variable name="may" select="'ABCDEFGHIJKLMNOPQRSTUVWXYZ'"/>
  <xsl:variable name="min" select="'abcdefghijklmnopqrstuvwxyz'"/>

  <xsl:template match="/">
    <html>
      <head>
        <title>Reporte de material adquirido</title>
        <style type="text/css">
body { margin: 8px; font-family: Tahoma, Verdana, Arial, sans-serif; font-size: 9pt; color: #000; background: #fff; }
h3 { font-size: 12pt; margin: 4px 0; }
h4 { font-size: 10pt; margin: 10px 0 4px 0; }
p.periodo { margin: 0 0 6px 0; }
table { border-collapse: collapse; width: 100%; font-size: 8pt; }
th, td { border: 1px solid #808080; padding: 2px 4px; vertical-align: top; text-align: left; }
th { background: #e0e0e0; }
td.num { text-align: right; }
p.totales { font-weight: bold; margin: 6px 0; }
        </style>
      </head>
      <body>
        <h3>Reporte de material adquirido</h3>
        <p class="periodo">Periodo: del <xsl:value-of select="/*/@fechaInicial"/> al <xsl:value-of select="/*/@fechaFinal"/>.
          Fecha del reporte: <xsl:value-of select="/*/@fechaReporte"/></p>
        <xsl:for-each select="/*">
          <xsl:call-template name="tabla"/>
          <xsl:call-template name="totales"/>
        </xsl:for-each>
      </body>
    </html>
  </xsl:template>

  <!-- The records of one report: a header row, one row each, and a notice when there are none. -->
  <xsl:template name="tabla">
    <table>
      <tr><th>No. adquisición</th><th>Biblioteca</th><th>Título</th><th>Autor</th><th>Editorial</th><th>ISBN</th><th>Escuela</th><th>Edición</th><th>Ejemplares recibidos</th><th>Costo</th><th>Factura</th><th>Recepción</th></tr>
      <xsl:for-each select="*">
        <tr>
          <td><xsl:value-of select="*[translate(local-name(), $may, $min) = 'noadquisicion']"/></td>
          <td class="num"><xsl:value-of select="*[translate(local-name(), $may, $min) = 'nobiblioteca']"/></td>
          <td><xsl:value-of select="*[translate(local-name(), $may, $min) = 'titulo']"/></td>
          <td><xsl:value-of select="*[translate(local-name(), $may, $min) = 'autor']"/></td>
          <td><xsl:value-of select="*[translate(local-name(), $may, $min) = 'noeditorial']"/></td>
          <td><xsl:value-of select="*[translate(local-name(), $may, $min) = 'isbn']"/></td>
          <td class="num"><xsl:value-of select="*[translate(local-name(), $may, $min) = 'noescuela']"/></td>
          <td class="num"><xsl:value-of select="*[translate(local-name(), $may, $min) = 'edicion']"/></td>
          <td class="num"><xsl:value-of select="*[translate(local-name(), $may, $min) = 'ejemplaresrecibidos']"/></td>
          <td class="num"><xsl:value-of select="*[translate(local-name(), $may, $min) = 'costo']"/></td>
          <td><xsl:value-of select="*[translate(local-name(), $may, $min) = 'factura']"/></td>
          <td><xsl:value-of select="*[translate(local-name(), $may, $min) = 'fechaderecepcion']"/></td>
        </tr>
      </xsl:for-each>
      <xsl:if test="not(*)">
        <tr><td colspan="12">No hay material en este periodo.</td></tr>
      </xsl:if>
    </table>
  </xsl:template>

  <xsl:template name="totales">
    <p class="totales">Ejemplares adquiridos: <xsl:value-of select="@Registros"/>
      <xsl:if test="@NumTitulos">. Títulos: <xsl:value-of select="@NumTitulos"/></xsl:if></p>
  </xsl:template>
</xsl:stylesheet>
