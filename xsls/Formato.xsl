<?xml version="1.0" encoding="UTF-8"?>
<!-- KORVEL 8 Adquisiciones: pedido de material bibliográfico -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:output method="html" encoding="UTF-8" indent="yes"/>
  <!-- An order may hold thousands of titles: the rows go in tables of this many, so that the view lays out
       the first screenful at once, and the borders are the tables' own rather than a style on every cell. -->
  <xsl:variable name="filas" select="100"/>

  <xsl:template match="/">
    <html>
      <head>
        <title>Pedido de material bibliográfico</title>
        <style type="text/css">body { font-family: Tahoma, Verdana, Arial, sans-serif; font-size: 9pt; }</style>
      </head>
      <body>
        <h3>Pedido de material bibliográfico</h3>
        <p>Periodo: del <xsl:value-of select="/*/@fechaInicial"/> al <xsl:value-of select="/*/@fechaFinal"/>.
          Fecha del reporte: <xsl:value-of select="/*/@fechaReporte"/></p>
        <xsl:for-each select="/*">
          <xsl:for-each select="*[position() mod $filas = 1]">
            <table border="1" cellspacing="0" cellpadding="2" width="100%">
              <xsl:if test="position() = 1">
                <tr bgcolor="#e0e0e0"><th>Clave</th><th>Solicitud</th><th>Título</th><th>ISBN</th><th>Autor</th><th>Ejemplares</th><th>Editorial</th><th>Edición</th></tr>
              </xsl:if>
              <!-- Elements by name; a column spelled two ways by the schema is asked for both ways. -->
              <xsl:for-each select=". | following-sibling::*[position() &lt; $filas]">
                <tr>
                  <td align="right"><xsl:value-of select="ClaveLibro|Clavelibro"/></td>
                  <td align="right"><xsl:value-of select="Solicitud"/></td>
                  <td><xsl:value-of select="Titulo"/></td>
                  <td><xsl:value-of select="ISBN|Isbn"/></td>
                  <td><xsl:value-of select="Autor"/></td>
                  <td align="right"><xsl:value-of select="EjemplaresPedidos|Ejemplarespedidos"/></td>
                  <td><xsl:value-of select="Editorial"/></td>
                  <td align="right"><xsl:value-of select="Edicion"/></td>
                </tr>
              </xsl:for-each>
            </table>
          </xsl:for-each>
          <xsl:if test="not(*)">
            <table border="1" cellspacing="0" cellpadding="2" width="100%">
              <tr bgcolor="#e0e0e0"><th>Clave</th><th>Solicitud</th><th>Título</th><th>ISBN</th><th>Autor</th><th>Ejemplares</th><th>Editorial</th><th>Edición</th></tr>
              <tr><td colspan="8">No hay material en este pedido.</td></tr>
            </table>
          </xsl:if>
          <p><b>Ejemplares pedidos: <xsl:value-of select="@Registros"/>
            <xsl:if test="@NumTitulos">. Títulos: <xsl:value-of select="@NumTitulos"/></xsl:if></b></p>
        </xsl:for-each>
      </body>
    </html>
  </xsl:template>
</xsl:stylesheet>
