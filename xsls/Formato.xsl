<?xml version="1.0" encoding="UTF-8"?>
<!-- KORVEL 8 Adquisiciones: pedido de material bibliográfico -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:include href="comun.xsl"/>
  <xsl:output method="html" encoding="UTF-8" indent="yes"/>
  <!-- An order may hold thousands of titles: the rows go in tables of this many, so that the view lays out
       the first screenful at once. Every table gives its columns the same shares of the width, so that they
       line up from one to the next. -->
  <xsl:variable name="filas" select="100"/>

  <xsl:template match="/">
    <html>
      <head>
        <title>Pedido de material bibliográfico</title>
        <xsl:call-template name="estilo"/>
      </head>
      <body>
        <xsl:call-template name="encabezado">
          <xsl:with-param name="titulo" select="'Pedido de material bibliográfico'"/>
          <xsl:with-param name="periodo" select="false()"/>
        </xsl:call-template>
        <xsl:call-template name="solicitudes"/>
        <xsl:for-each select="/*">
          <xsl:for-each select="*[position() mod $filas = 1]">
            <table width="100%">
              <xsl:if test="position() = 1">
                <tr><th>Solicitud</th><th>Título, autor, editorial, edición, ISBN</th><th>Ejemplares</th></tr>
              </xsl:if>
              <xsl:for-each select=". | following-sibling::*[position() &lt; $filas]">
                <tr>
                  <td class="num" width="13%"><xsl:value-of select="Solicitud"/></td>
                  <td width="73%"><xsl:call-template name="obra">
                    <xsl:with-param name="titulo" select="Titulo"/>
                    <xsl:with-param name="autor" select="Autor"/>
                    <xsl:with-param name="editorial" select="Editorial"/>
                    <xsl:with-param name="edicion" select="Edicion"/>
                    <xsl:with-param name="isbn" select="ISBN"/>
                  </xsl:call-template></td>
                  <td class="num" width="14%"><xsl:value-of select="EjemplaresPedidos"/></td>
                </tr>
              </xsl:for-each>
            </table>
          </xsl:for-each>
          <xsl:if test="not(*)">
            <table width="100%">
              <tr><th>Solicitud</th><th>Título, autor, editorial, edición, ISBN</th><th>Ejemplares</th></tr>
              <tr><td colspan="3">No hay material en este pedido.</td></tr>
            </table>
          </xsl:if>
          <p class="totales">Títulos: <xsl:value-of select="count(*)"/>. Ejemplares pedidos: <xsl:value-of select="sum(*/EjemplaresPedidos[number(.) = number(.)])"/></p>
        </xsl:for-each>
      </body>
    </html>
  </xsl:template>

  <!-- The requests the order comes from: who asked, for which school and library. -->
  <xsl:template name="solicitudes">
    <xsl:if test="$nombres/solicitud">
      <table>
        <tr><th>Solicitud</th><th>Fecha</th><th>Solicitante</th><th>Escuela</th><th>Biblioteca</th></tr>
        <xsl:for-each select="$nombres/solicitud">
          <tr>
            <td class="num"><xsl:value-of select="@n"/></td>
            <td class="dato"><xsl:call-template name="fecha"><xsl:with-param name="valor" select="@fecha"/></xsl:call-template></td>
            <td><xsl:value-of select="@solicitante"/></td>
            <td><xsl:call-template name="nombre">
              <xsl:with-param name="tipo" select="'escuela'"/><xsl:with-param name="numero" select="@escuela"/>
            </xsl:call-template></td>
            <td><xsl:call-template name="nombre">
              <xsl:with-param name="tipo" select="'biblioteca'"/><xsl:with-param name="numero" select="@biblioteca"/>
            </xsl:call-template></td>
          </tr>
        </xsl:for-each>
      </table>
      <p/>
    </xsl:if>
  </xsl:template>
</xsl:stylesheet>
