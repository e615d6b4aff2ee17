<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Text</name>
    <message>
        <source>warning: </source>
        <translation>Warnung: </translation>
    </message>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>no</source>
        <translation>nein</translation>
    </message>
    <message>
        <source>A subcommand is required</source>
        <translation>Es fehlt ein Befehl</translation>
    </message>
    <message>
        <source>%1 is required</source>
        <translation>%1 fehlt</translation>
    </message>
    <message>
        <source>The following argument was not expected: %1</source>
        <translation>Dieses Argument wurde nicht erwartet: %1</translation>
    </message>
    <message>
        <source>The following arguments were not expected: %1</source>
        <translation>Diese Argumente wurden nicht erwartet: %1</translation>
    </message>
    <message>
        <source>%1: %2 required %3 missing</source>
        <translation>%1: es fehlt der Wert (%2 mal %3)</translation>
    </message>
    <message>
        <source>%1: %2 not in {%3}</source>
        <translation>%1: %2 ist nicht unter {%3}</translation>
    </message>
    <message>
        <source>Could not convert: %1 = %2</source>
        <translation>Kann nicht umgewandelt werden: %1 = %2</translation>
    </message>
    <message>
        <source>%1: Should be true/false or a number</source>
        <translation>%1: erwartet wurde true, false oder eine Zahl</translation>
    </message>
    <message>
        <source>%1 requires %2</source>
        <translation>%1 verlangt %2</translation>
    </message>
    <message>
        <source>%1 excludes %2</source>
        <translation>%1 schließt %2 aus</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>sie kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>file</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>material</source>
        <translation>Material</translation>
    </message>
    <message>
        <source>vertices</source>
        <translation>Eckpunkte</translation>
    </message>
    <message>
        <source>triangles</source>
        <translation>Dreiecke</translation>
    </message>
    <message>
        <source>skipped because</source>
        <translation>übergangen, weil</translation>
    </message>
    <message>
        <source>skipped in memory because</source>
        <translation>im Speicher übergangen, weil</translation>
    </message>
    <message>
        <source>document</source>
        <translation>Dokument</translation>
    </message>
    <message>
        <source>materials</source>
        <translation>Materialien</translation>
    </message>
    <message>
        <source>shapes that load</source>
        <translation>ladbare Formen</translation>
    </message>
    <message>
        <source>shapes that are skipped</source>
        <translation>übergangene Formen</translation>
    </message>
    <message>
        <source>shapes</source>
        <translation>Formen</translation>
    </message>
    <message>
        <source>no mesh could be read from it</source>
        <translation>daraus konnte kein Netz gelesen werden</translation>
    </message>
    <message>
        <source>it does not stand under root/shapes</source>
        <translation>sie steht nicht unter root/shapes</translation>
    </message>
    <message>
        <source>it has no material id</source>
        <translation>sie hat keine Materialkennung</translation>
    </message>
    <message>
        <source>its material &quot;%1&quot; is not defined</source>
        <translation>ihr Material „%1“ ist nicht definiert</translation>
    </message>
    <message>
        <source>cannot be opened: </source>
        <translation>kann nicht geöffnet werden: </translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>it is beyond the limits of such documents</source>
        <translation>es liegt jenseits der Grenzen für solche Dokumente</translation>
    </message>
    <message>
        <source>expected an associated-shapes document: </source>
        <translation>erwartet wurde ein Dokument verknüpfter Formen: </translation>
    </message>
    <message>
        <source>expected one of the suffixes .stl, .ply, .obj</source>
        <translation>erwartet wurde eine der Endungen .stl, .ply, .obj</translation>
    </message>
    <message>
        <source>no mesh could be read from its file</source>
        <translation>aus ihrer Datei konnte kein Netz gelesen werden</translation>
    </message>
    <message>
        <source>%1: shape %2, &quot;%3&quot;, is left out: %4</source>
        <translation>%1: Form %2, „%3“, wird ausgelassen: %4</translation>
    </message>
    <message>
        <source>holds no shape that could be unpacked</source>
        <translation>enthält keine Form, die entpackt werden könnte</translation>
    </message>
    <message>
        <source>the folder cannot be made</source>
        <translation>der Ordner kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>export the file again, from the program that wrote it</source>
        <translation>die Datei noch einmal exportieren, aus dem Programm, das sie geschrieben hat</translation>
    </message>
    <message>
        <source>the content is that of %1, the suffix is not</source>
        <translation>der Inhalt ist der des Formats %1, die Endung nicht</translation>
    </message>
    <message numerus="yes">
        <source>%1 has %n point(s)</source>
        <translation>
            <numerusform>%1 hat %n Punkt</numerusform>
            <numerusform>%1 hat %n Punkte</numerusform>
        </translation>
    </message>
    <message>
        <source>points count from 0</source>
        <translation>Punkte werden ab 0 gezählt</translation>
    </message>
    <message>
        <source>line %1: a condition refers to point %2; %3</source>
        <translation>Zeile %1: eine Bedingung bezieht sich auf Punkt %2; %3</translation>
    </message>
    <message>
        <source>take the volume mesh that the conditions were made for</source>
        <translation>das Volumennetz nehmen, für das die Bedingungen gemacht wurden</translation>
    </message>
    <message numerus="yes">
        <source>%n more reference(s) of this kind</source>
        <translation>
            <numerusform>%n weiterer Verweis dieser Art</numerusform>
            <numerusform>%n weitere Verweise dieser Art</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 conditions are for %2 points</source>
        <translation>%1 Bedingungen gelten für %2 Punkte</translation>
    </message>
    <message>
        <source>%1 of %2 components are NaN or infinite</source>
        <translation>%1 von %2 Komponenten sind NaN oder unendlich</translation>
    </message>
    <message>
        <source>the points were not compared with a volume mesh</source>
        <translation>die Punkte wurden nicht mit einem Volumennetz verglichen</translation>
    </message>
    <message>
        <source>the file is damaged; copy it again, or export it again</source>
        <translation>die Datei ist beschädigt; noch einmal kopieren oder exportieren</translation>
    </message>
    <message>
        <source>make triangles of all faces on export, or in a mesh editor</source>
        <translation>beim Export oder in einem Netzeditor aus allen Flächen Dreiecke machen</translation>
    </message>
    <message>
        <source>check the spelling of the path</source>
        <translation>die Schreibweise des Pfades prüfen</translation>
    </message>
    <message>
        <source>name a regular file; save what a pipe carries to a file first</source>
        <translation>eine gewöhnliche Datei angeben; was eine Pipe bringt, zuerst in einer Datei speichern</translation>
    </message>
    <message>
        <source>&quot;surfaceio formats&quot; lists what can be read; export as one of these</source>
        <translation>„surfaceio formats“ nennt, was gelesen werden kann; in eines davon exportieren</translation>
    </message>
    <message>
        <source>rename the file: readers choose the format by the suffix</source>
        <translation>die Datei umbenennen: gelesen wird nach der Endung</translation>
    </message>
    <message>
        <source>the file was cut off or is no STL; copy or export it again</source>
        <translation>die Datei wurde abgeschnitten oder ist kein STL; noch einmal kopieren oder exportieren</translation>
    </message>
    <message>
        <source>bytes were lost or added: copy the file again, in binary mode; if it stays so, export it again</source>
        <translation>Bytes gingen verloren oder kamen hinzu: die Datei noch einmal kopieren, im Binärmodus; bleibt es so, noch einmal exportieren</translation>
    </message>
    <message>
        <source>overwrite the first five bytes, for example with spaces; they are not part of the mesh</source>
        <translation>die ersten fünf Bytes überschreiben, zum Beispiel mit Leerzeichen; sie gehören nicht zum Netz</translation>
    </message>
    <message>
        <source>copy or export the file again</source>
        <translation>die Datei noch einmal kopieren oder exportieren</translation>
    </message>
    <message>
        <source>the file holds no facets; export it again</source>
        <translation>die Datei enthält keine Facetten; noch einmal exportieren</translation>
    </message>
    <message>
        <source>write each vertex as the word, a space and three numbers with points, with spaces between; no tabs</source>
        <translation>jeden Eckpunkt als das Wort, ein Leerzeichen und drei Zahlen mit Dezimalpunkt schreiben, mit Leerzeichen dazwischen; keine Tabulatoren</translation>
    </message>
    <message>
        <source>the file was cut off, or facets lack a corner; export it again</source>
        <translation>die Datei wurde abgeschnitten, oder Facetten fehlt eine Ecke; noch einmal exportieren</translation>
    </message>
    <message>
        <source>every facet is a point or a line; check units and decimals of the export</source>
        <translation>jede Facette ist ein Punkt oder eine Linie; Einheiten und Nachkommastellen des Exports prüfen</translation>
    </message>
    <message>
        <source>write the record again, with MeshWriter or &quot;surfaceio convert&quot;</source>
        <translation>den Datensatz neu schreiben, mit MeshWriter oder „surfaceio convert“</translation>
    </message>
    <message>
        <source>the library said this while reading; see docs/formats for the format</source>
        <translation>das sagte die Bibliothek beim Lesen; siehe docs/formats zu diesem Format</translation>
    </message>
    <message>
        <source>the file is sound and holds no facet; export it again</source>
        <translation>die Datei ist in Ordnung und enthält keine Facette; noch einmal exportieren</translation>
    </message>
    <message>
        <source>scale by 1000: coordinates are taken as millimetres</source>
        <translation>mit 1000 skalieren: Koordinaten gelten als Millimeter</translation>
    </message>
    <message>
        <source>scale by 0.001: coordinates are taken as millimetres</source>
        <translation>mit 0.001 skalieren: Koordinaten gelten als Millimeter</translation>
    </message>
    <message>
        <source>remove the facets at these vertices in a mesh editor</source>
        <translation>die Facetten an diesen Eckpunkten in einem Netzeditor entfernen</translation>
    </message>
    <message>
        <source>these vertices have no area around them; remove slivers in a mesh editor</source>
        <translation>um diese Eckpunkte liegt keine Fläche; Splitter in einem Netzeditor entfernen</translation>
    </message>
    <message>
        <source>split or remove the surplus facets before measuring or printing</source>
        <translation>die überzähligen Facetten vor dem Messen oder Drucken abtrennen oder entfernen</translation>
    </message>
    <message>
        <source>make the winding of neighbouring facets agree in a mesh editor</source>
        <translation>in einem Netzeditor den Umlaufsinn benachbarter Facetten angleichen</translation>
    </message>
    <message>
        <source>remove the copies; they count twice in areas and normals</source>
        <translation>die Kopien entfernen; sie zählen doppelt in Flächeninhalten und Normalen</translation>
    </message>
    <message>
        <source>nothing for a scan, which is a sheet; close the surface before printing</source>
        <translation>bei einem Scan, der eine offene Fläche ist, ist nichts zu tun; vor dem Drucken die Oberfläche schließen</translation>
    </message>
    <message>
        <source>read the file without tags, or clear the words: surfaceio tags relabel FILE &apos;*=0/0&apos; -o OUT</source>
        <translation>die Datei ohne Kennungen lesen, oder die Wörter löschen: surfaceio tags relabel FILE &apos;*=0/0&apos; -o OUT</translation>
    </message>
    <message>
        <source>nothing: readers drop facets with two equal corners</source>
        <translation>nichts zu tun: beim Lesen fallen Facetten mit zwei gleichen Ecken weg</translation>
    </message>
    <message>
        <source>nothing for viewing; remesh before a simulation</source>
        <translation>zum Ansehen ist nichts zu tun; vor einer Simulation neu vernetzen</translation>
    </message>
    <message>
        <source>export as binary PLY; mesh editors do when they save the file</source>
        <translation>als binäres PLY exportieren; Netzeditoren tun das beim Speichern</translation>
    </message>
    <message>
        <source>make a surface of the points first, or read them as a point cloud</source>
        <translation>zuerst eine Oberfläche aus den Punkten machen, oder sie als Punktwolke lesen</translation>
    </message>
    <message>
        <source>save without colours of faces, or with colours of vertices</source>
        <translation>ohne Farben der Flächen speichern, oder mit Farben der Eckpunkte</translation>
    </message>
    <message>
        <source>save with the elements vertex and face first; others cannot be skipped</source>
        <translation>mit den Elementen vertex und face zuerst speichern; andere können nicht übersprungen werden</translation>
    </message>
    <message>
        <source>save with properties of other types, and with no list but that of corners</source>
        <translation>mit Eigenschaften anderer Typen speichern, und ohne Liste außer der der Ecken</translation>
    </message>
    <message>
        <source>export with indices from 1 on; mesh editors do when they save the file</source>
        <translation>mit Indizes ab 1 exportieren; Netzeditoren tun das beim Speichern</translation>
    </message>
    <message>
        <source>put all materials into one MTL file, and name that one</source>
        <translation>alle Materialien in eine MTL-Datei legen und diese angeben</translation>
    </message>
    <message>
        <source>give every corner a texture coordinate, or none</source>
        <translation>jeder Ecke eine Texturkoordinate geben, oder keiner</translation>
    </message>
    <message>
        <source>scale the images down</source>
        <translation>die Bilder verkleinern</translation>
    </message>
    <message>
        <source>the file holds no mesh; export it again</source>
        <translation>die Datei enthält kein Netz; noch einmal exportieren</translation>
    </message>
    <message>
        <source>make triangles of all faces: only the first three corners of these are read</source>
        <translation>aus allen Flächen Dreiecke machen: von diesen werden nur die ersten drei Ecken gelesen</translation>
    </message>
    <message>
        <source>write numbers with a point; such a word is read as 0</source>
        <translation>Zahlen mit Dezimalpunkt schreiben; ein solches Wort wird als 0 gelesen</translation>
    </message>
    <message>
        <source>replace tabs by spaces; such a line is not read</source>
        <translation>Tabulatoren durch Leerzeichen ersetzen; eine solche Zeile wird nicht gelesen</translation>
    </message>
    <message>
        <source>write each vertex and each face in one line</source>
        <translation>jeden Eckpunkt und jede Fläche in eine Zeile schreiben</translation>
    </message>
    <message>
        <source>with as many of them as positions these numbers are ignored: write one more &quot;vt&quot; or &quot;vn&quot; line, or make the numbers agree</source>
        <translation>wenn es so viele sind wie Positionen, werden diese Nummern nicht beachtet: eine Zeile „vt“ oder „vn“ mehr schreiben, oder die Nummern angleichen</translation>
    </message>
    <message>
        <source>write one more &quot;vt&quot; line, in no face: then each material gets vertices of its own</source>
        <translation>eine Zeile „vt“ mehr schreiben, die in keiner Fläche vorkommt: dann bekommt jedes Material eigene Eckpunkte</translation>
    </message>
    <message>
        <source>colours behind positions are not read; for colours export as PLY</source>
        <translation>Farben hinter Positionen werden nicht gelesen; für Farben als PLY exportieren</translation>
    </message>
    <message>
        <source>put the MTL file beside the OBJ file, or correct its name there</source>
        <translation>die MTL-Datei neben die OBJ-Datei legen, oder dort ihren Namen berichtigen</translation>
    </message>
    <message>
        <source>put the image beside the scan, or correct its name</source>
        <translation>das Bild neben den Scan legen, oder seinen Namen berichtigen</translation>
    </message>
    <message>
        <source>name the file relative to the scan; on another computer this path leads nowhere</source>
        <translation>die Datei relativ zum Scan angeben; auf einem anderen Rechner führt dieser Pfad ins Leere</translation>
    </message>
    <message>
        <source>write a slash; a backslash is part of the name for readers on other systems</source>
        <translation>einen Schrägstrich schreiben; ein umgekehrter gehört auf anderen Systemen zum Namen</translation>
    </message>
    <message>
        <source>take the options out; scale the image or the coordinates instead</source>
        <translation>die Optionen herausnehmen; stattdessen das Bild oder die Koordinaten skalieren</translation>
    </message>
    <message>
        <source>convert the image to PNG or JPEG</source>
        <translation>das Bild in PNG oder JPEG umwandeln</translation>
    </message>
    <message>
        <source>scale the image down; applications refuse it with the limit of Qt</source>
        <translation>das Bild verkleinern; Anwendungen lehnen es mit der Grenze von Qt ab</translation>
    </message>
    <message>
        <source>correct this line: materials behind it are as if undefined</source>
        <translation>diese Zeile berichtigen: Materialien dahinter sind wie nicht definiert</translation>
    </message>
    <message>
        <source>define it: its faces are drawn with another texture, or without</source>
        <translation>es definieren: seine Flächen werden mit einer anderen Textur oder ohne gezeichnet</translation>
    </message>
    <message>
        <source>textures are not repeated: bring the coordinates into 0 to 1</source>
        <translation>Texturen werden nicht wiederholt: die Koordinaten in 0 bis 1 bringen</translation>
    </message>
    <message>
        <source>keep the image of the colours last, or alone</source>
        <translation>das Bild der Farben als letztes lassen, oder allein</translation>
    </message>
    <message>
        <source>nothing; its images are not read</source>
        <translation>nichts zu tun; seine Bilder werden nicht gelesen</translation>
    </message>
    <message>
        <source>name the image in the header: comment TextureFile NAME</source>
        <translation>das Bild im Kopf nennen: comment TextureFile NAME</translation>
    </message>
    <message>
        <source>indices count from 0; -1 stands for no tetrahedron, never for a point</source>
        <translation>Indizes zählen ab 0; -1 steht für kein Tetraeder, nie für einen Punkt</translation>
    </message>
    <message>
        <source>write a row for each face of each tetrahedron</source>
        <translation>eine Zeile für jede Fläche jedes Tetraeders schreiben</translation>
    </message>
    <message>
        <source>mesh again, or take the flat ones out: a solver divides by their volume</source>
        <translation>neu vernetzen, oder die flachen herausnehmen: ein Löser teilt durch ihr Volumen</translation>
    </message>
    <message>
        <source>the format keeps no orientation; swap two points of each after reading</source>
        <translation>das Format hält keine Orientierung fest; nach dem Lesen je zwei Punkte vertauschen</translation>
    </message>
    <message>
        <source>four points were taken from the first rows of that tetrahedron</source>
        <translation>vier Punkte wurden aus den ersten Zeilen dieses Tetraeders genommen</translation>
    </message>
    <message>
        <source>list each face of the outer surface once among the bound faces</source>
        <translation>jede Fläche der äußeren Oberfläche einmal unter den Randflächen aufführen</translation>
    </message>
    <message>
        <source>the body has a gap, or parts of it touch in an edge only</source>
        <translation>der Körper hat eine Lücke, oder Teile von ihm berühren sich nur in einer Kante</translation>
    </message>
    <message>
        <source>give each point one condition: solvers differ in which of several they take</source>
        <translation>jedem Punkt eine Bedingung geben: Löser nehmen von mehreren verschiedene</translation>
    </message>
    <message>
        <source>name the volume mesh before the conditions: surfaceio check MESH.vmesh CONDITIONS</source>
        <translation>das Volumennetz vor den Bedingungen angeben: surfaceio check MESH.vmesh CONDITIONS</translation>
    </message>
    <message>
        <source>note</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>name &quot;%1&quot;, if that is meant, and put it beside the scan</source>
        <translation>„%1“ angeben, wenn das gemeint ist, und es neben den Scan legen</translation>
    </message>
    <message>
        <source> is named by a path from the root of a disk</source>
        <translation> ist mit einem Pfad ab der Wurzel eines Datenträgers angegeben</translation>
    </message>
    <message>
        <source> is named with a backslash</source>
        <translation> ist mit einem umgekehrten Schrägstrich angegeben</translation>
    </message>
    <message>
        <source> does not exist</source>
        <translation> existiert nicht</translation>
    </message>
    <message>
        <source>the image</source>
        <translation>das Bild</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no image that can be read</source>
        <translation>„%1“ ist kein lesbares Bild</translation>
    </message>
    <message>
        <source>the image &quot;%1&quot; is named by a path from the root of a disk</source>
        <translation>das Bild „%1“ ist mit einem Pfad ab der Wurzel eines Datenträgers angegeben</translation>
    </message>
    <message>
        <source>%1 mm across; are these metres?</source>
        <translation>%1 mm Ausdehnung; sind das Meter?</translation>
    </message>
    <message>
        <source>%1 mm across; are these micrometres?</source>
        <translation>%1 mm Ausdehnung; sind das Mikrometer?</translation>
    </message>
    <message numerus="yes">
        <source>%n vert(ex|ices) with a NaN or an infinity</source>
        <translation>
            <numerusform>%n Eckpunkt mit NaN oder unendlichen Koordinaten</numerusform>
            <numerusform>%n Eckpunkte mit NaN oder unendlichen Koordinaten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n vert(ex|ices) without a normal</source>
        <translation>
            <numerusform>%n Eckpunkt ohne Normale</numerusform>
            <numerusform>%n Eckpunkte ohne Normale</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n facet(s) with two equal corners</source>
        <translation>
            <numerusform>%n Facette mit zwei gleichen Ecken</numerusform>
            <numerusform>%n Facetten mit zwei gleichen Ecken</numerusform>
        </translation>
    </message>
    <message>
        <source>remove them in a mesh editor: they have no area and no normal</source>
        <translation>in einem Netzeditor entfernen: sie haben weder Fläche noch Normale</translation>
    </message>
    <message numerus="yes">
        <source>%n edge(s) with more than two facets</source>
        <translation>
            <numerusform>%n Kante mit mehr als zwei Facetten</numerusform>
            <numerusform>%n Kanten mit mehr als zwei Facetten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n edge(s) whose two facets are wound against each other</source>
        <translation>
            <numerusform>%n Kante, deren zwei Facetten gegeneinander umlaufen</numerusform>
            <numerusform>%n Kanten, deren zwei Facetten gegeneinander umlaufen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n facet(s) that (is|are) there already</source>
        <translation>
            <numerusform>%n Facette, die schon da ist</numerusform>
            <numerusform>%n Facetten, die schon da sind</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n edge(s) with one facet only</source>
        <translation>
            <numerusform>%n Kante mit nur einer Facette</numerusform>
            <numerusform>%n Kanten mit nur einer Facette</numerusform>
        </translation>
    </message>
    <message>
        <source>no facets</source>
        <translation>keine Facetten</translation>
    </message>
    <message>
        <source>; is it &quot;%1&quot;?</source>
        <translation>; ist „%1“ gemeint?</translation>
    </message>
    <message numerus="yes">
        <source>, and %n more</source>
        <translation>
            <numerusform>, und %n weitere</numerusform>
            <numerusform>, und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>line %1: %2%3</source>
        <translation>Zeile %1: %2%3</translation>
    </message>
    <message>
        <source>a face of more than 4 corners</source>
        <translation>eine Fläche mit mehr als 4 Ecken</translation>
    </message>
    <message>
        <source>a word where a number is expected</source>
        <translation>ein Wort, wo eine Zahl erwartet wird</translation>
    </message>
    <message>
        <source>a tab behind the keyword</source>
        <translation>ein Tabulator hinter dem Schlüsselwort</translation>
    </message>
    <message>
        <source>a line that goes on in the next</source>
        <translation>eine Zeile, die in der nächsten weitergeht</translation>
    </message>
    <message>
        <source>a vertex with a colour behind its position</source>
        <translation>ein Eckpunkt mit einer Farbe hinter seiner Position</translation>
    </message>
    <message>
        <source>a face of 4 corners</source>
        <translation>eine Fläche mit 4 Ecken</translation>
    </message>
    <message>
        <source>a face with relative (negative) indices</source>
        <translation>eine Fläche mit relativen (negativen) Indizes</translation>
    </message>
    <message>
        <source>a face of fewer than 3 corners</source>
        <translation>eine Fläche mit weniger als 3 Ecken</translation>
    </message>
    <message>
        <source>an index that is 0, missing or no number</source>
        <translation>ein Index, der 0 ist, fehlt oder keine Zahl ist</translation>
    </message>
    <message>
        <source>too few numbers</source>
        <translation>zu wenige Zahlen</translation>
    </message>
    <message>
        <source>a corner whose normal has another number than its position</source>
        <translation>eine Ecke, deren Normale eine andere Nummer hat als ihre Position</translation>
    </message>
    <message>
        <source>a corner whose texture coordinate has another number than its position</source>
        <translation>eine Ecke, deren Texturkoordinate eine andere Nummer hat als ihre Position</translation>
    </message>
    <message>
        <source>a face shares vertices with one of another material</source>
        <translation>eine Fläche teilt sich Eckpunkte mit einer aus anderem Material</translation>
    </message>
    <message>
        <source>%1 lies outside 0 to 1</source>
        <translation>%1 liegt außerhalb von 0 bis 1</translation>
    </message>
    <message>
        <source>%1, line %2: </source>
        <translation>%1, Zeile %2: </translation>
    </message>
    <message>
        <source>the options &quot;%1&quot; are taken as part of the name of &quot;%2&quot;</source>
        <translation>die Optionen „%1“ werden als Teil des Namens von „%2“ gelesen</translation>
    </message>
    <message numerus="yes">
        <source>the material &quot;%1&quot; has %n image(s); the last one, &quot;%2&quot;, becomes its texture</source>
        <translation>
            <numerusform>das Material „%1“ hat %n Bild; das letzte, „%2“, wird seine Textur</numerusform>
            <numerusform>das Material „%1“ hat %n Bilder; das letzte, „%2“, wird seine Textur</numerusform>
        </translation>
    </message>
    <message>
        <source>no face has the material &quot;%1&quot;</source>
        <translation>keine Fläche hat das Material „%1“</translation>
    </message>
    <message>
        <source>the material library</source>
        <translation>die Materialbibliothek</translation>
    </message>
    <message>
        <source>line %1: </source>
        <translation>Zeile %1: </translation>
    </message>
    <message>
        <source>the library is not read from here on</source>
        <translation>ab hier wird die Bibliothek nicht gelesen</translation>
    </message>
    <message numerus="yes">
        <source>%n face(s) (has|have) the material &quot;%1&quot;, which no library defines</source>
        <translation>
            <numerusform>%n Fläche hat das Material „%1“, das keine Bibliothek definiert</numerusform>
            <numerusform>%n Flächen haben das Material „%1“, das keine Bibliothek definiert</numerusform>
        </translation>
    </message>
    <message>
        <source>cannot be opened</source>
        <translation>kann nicht geöffnet werden</translation>
    </message>
    <message numerus="yes">
        <source>%n texture coordinate(s) (lies|lie) outside 0 to 1</source>
        <translation>
            <numerusform>%n Texturkoordinate liegt außerhalb von 0 bis 1</numerusform>
            <numerusform>%n Texturkoordinaten liegen außerhalb von 0 bis 1</numerusform>
        </translation>
    </message>
    <message>
        <source>has texture coordinates, but its header names no image</source>
        <translation>hat Texturkoordinaten, aber ihr Kopf nennt kein Bild</translation>
    </message>
    <message numerus="yes">
        <source>the attribute words look like colours of 15 bits, and the header says COLOR=; as tags they make %n surface(s)</source>
        <translation>
            <numerusform>die Attributwörter sehen wie Farben von 15 Bit aus, und der Kopf sagt COLOR=; als Kennungen ergeben sie %n Oberfläche</numerusform>
            <numerusform>die Attributwörter sehen wie Farben von 15 Bit aus, und der Kopf sagt COLOR=; als Kennungen ergeben sie %n Oberflächen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the attribute words look like colours of 15 bits; as tags they make %n surface(s)</source>
        <translation>
            <numerusform>die Attributwörter sehen wie Farben von 15 Bit aus; als Kennungen ergeben sie %n Oberfläche</numerusform>
            <numerusform>die Attributwörter sehen wie Farben von 15 Bit aus; als Kennungen ergeben sie %n Oberflächen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n facet(s) without area</source>
        <translation>
            <numerusform>%n Facette ohne Flächeninhalt</numerusform>
            <numerusform>%n Facetten ohne Flächeninhalt</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2 tetrahedra have points that no face row tells</source>
        <translation>%1 von %2 Tetraedern haben Punkte, die keine Flächenzeile nennt</translation>
    </message>
    <message>
        <source>%1 of %2 tetrahedra are flat</source>
        <translation>%1 von %2 Tetraedern sind flach</translation>
    </message>
    <message>
        <source>%1 of %2 tetrahedra have a negative volume in the order in which the face rows bring their points</source>
        <translation>%1 von %2 Tetraedern haben ein negatives Volumen in der Reihenfolge, in der die Flächenzeilen ihre Punkte bringen</translation>
    </message>
    <message numerus="yes">
        <source>%n face row(s) (has|have) a point that (its|their) tetrahedron does not have, the first in line %1</source>
        <translation>
            <numerusform>%n Flächenzeile hat einen Punkt, den ihr Tetraeder nicht hat, die erste in Zeile %1</numerusform>
            <numerusform>%n Flächenzeilen haben einen Punkt, den ihr Tetraeder nicht hat, die erste in Zeile %1</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 face rows have a tetrahedron on one side only, but there are %2 bound-face rows</source>
        <translation>%1 Flächenzeilen haben nur auf einer Seite ein Tetraeder, es gibt aber %2 Randflächenzeilen</translation>
    </message>
    <message>
        <source>%1 of %2 edges of the boundary do not join exactly two bound faces</source>
        <translation>%1 von %2 Kanten des Randes verbinden nicht genau zwei Randflächen</translation>
    </message>
    <message>
        <source>%1 of %2 points have a NaN or an infinity</source>
        <translation>%1 von %2 Punkten haben NaN oder unendliche Koordinaten</translation>
    </message>
    <message>
        <source>: there is not enough memory for it</source>
        <translation>: dafür reicht der Speicher nicht</translation>
    </message>
    <message>
        <source>could not be read</source>
        <translation>konnte nicht gelesen werden</translation>
    </message>
    <message>
        <source>expected one of the suffixes %1</source>
        <translation>erwartet wurde eine der Endungen %1</translation>
    </message>
    <message>
        <source>holds no facets that could be converted</source>
        <translation>enthält keine Facetten, die umgewandelt werden könnten</translation>
    </message>
    <message>
        <source>a file of the kind &quot;%1&quot; holds no scan metadata</source>
        <translation>eine Datei der Art „%1“ enthält keine Scan-Metadaten</translation>
    </message>
    <message>
        <source>a file of the kind &quot;%1&quot; holds no alpha and no material</source>
        <translation>eine Datei der Art „%1“ enthält kein Alpha und kein Material</translation>
    </message>
    <message>
        <source>colours lose their alpha; --alpha writes it</source>
        <translation>die Farben verlieren ihr Alpha; --alpha schreibt es</translation>
    </message>
    <message>
        <source>could not be written</source>
        <translation>konnte nicht geschrieben werden</translation>
    </message>
    <message>
        <source>binary STL</source>
        <translation>binäres STL</translation>
    </message>
    <message>
        <source>binary PLY</source>
        <translation>binäres PLY</translation>
    </message>
    <message>
        <source>XYZ points</source>
        <translation>XYZ-Punkte</translation>
    </message>
    <message>
        <source>mesh array record</source>
        <translation>Netz-Array-Datensatz</translation>
    </message>
    <message>
        <source>%1 and %2 would both become %3</source>
        <translation>%1 und %2 würden beide zu %3</translation>
    </message>
    <message>
        <source>%1 would become %2, which is to be converted itself</source>
        <translation>%1 würde zu %2, das selbst umgewandelt werden soll</translation>
    </message>
    <message>
        <source>finishing</source>
        <translation>wird fertiggestellt</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>noch %1</translation>
    </message>
    <message numerus="yes">
        <source>%1: %n byte(s) (is|are) missing at its end; what is there was read</source>
        <translation>
            <numerusform>%1: an ihrem Ende fehlt %n Byte; gelesen wurde, was da ist</numerusform>
            <numerusform>%1: an ihrem Ende fehlen %n Bytes; gelesen wurde, was da ist</numerusform>
        </translation>
    </message>
    <message>
        <source>scanner name</source>
        <translation>Scannername</translation>
    </message>
    <message>
        <source>scanner serial</source>
        <translation>Seriennummer des Scanners</translation>
    </message>
    <message>
        <source>software version</source>
        <translation>Softwareversion</translation>
    </message>
    <message>
        <source>expected a %1 of ASCII letters, found &quot;%2&quot;: in a PLY header others cut its end off</source>
        <translation>%1: erwartet wurden ASCII-Zeichen, gefunden „%2“: andere schneiden in einem PLY-Kopf das Ende ab</translation>
    </message>
    <message>
        <source>Examples:</source>
        <translation>Beispiele:</translation>
    </message>
    <message>
        <source>Options of every verb</source>
        <translation>Optionen jedes Befehls</translation>
    </message>
    <message>
        <source>all went well</source>
        <translation>alles ging gut</translation>
    </message>
    <message>
        <source>a file could not be read or written</source>
        <translation>eine Datei konnte nicht gelesen oder geschrieben werden</translation>
    </message>
    <message>
        <source>the command line makes no sense</source>
        <translation>die Befehlszeile ergibt keinen Sinn</translation>
    </message>
    <message>
        <source>a file is damaged, or is not what it says it is</source>
        <translation>eine Datei ist beschädigt, oder nicht das, was sie zu sein vorgibt</translation>
    </message>
    <message>
        <source>a sound file of a kind that the library does not read</source>
        <translation>eine unversehrte Datei einer Art, die die Bibliothek nicht liest</translation>
    </message>
    <message>
        <source>all went well but for warnings, and --strict was given</source>
        <translation>alles ging gut bis auf Warnungen, und --strict war angegeben</translation>
    </message>
    <message>
        <source>several files were asked for, and some of them failed</source>
        <translation>mehrere Dateien waren verlangt, und einige davon sind fehlgeschlagen</translation>
    </message>
    <message>
        <source>interrupted with Ctrl-C</source>
        <translation>mit Strg-C unterbrochen</translation>
    </message>
    <message>
        <source>options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>User Commands</source>
        <translation>Benutzerbefehle</translation>
    </message>
    <message>
        <source>NAME</source>
        <translation>NAME</translation>
    </message>
    <message>
        <source>looks at, checks and converts surface meshes</source>
        <translation>zeigt, prüft und wandelt Oberflächennetze um</translation>
    </message>
    <message>
        <source>SYNOPSIS</source>
        <translation>ÜBERSICHT</translation>
    </message>
    <message>
        <source>verb</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>DESCRIPTION</source>
        <translation>BESCHREIBUNG</translation>
    </message>
    <message>
        <source>Results go to the standard output, everything else to the standard error.</source>
        <translation>Ergebnisse gehen auf die Standardausgabe, alles andere auf die Standardfehlerausgabe.</translation>
    </message>
    <message>
        <source>When set and not empty, messages are not coloured unless --color always is given.</source>
        <translation>Wenn gesetzt und nicht leer, sind Meldungen nicht farbig, außer mit --color always.</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>OPTIONEN</translation>
    </message>
    <message>
        <source>Every verb takes:</source>
        <translation>Jeder Befehl kennt:</translation>
    </message>
    <message>
        <source>VERBS</source>
        <translation>BEFEHLE</translation>
    </message>
    <message>
        <source>EXIT STATUS</source>
        <translation>EXIT-CODES</translation>
    </message>
    <message>
        <source>ENVIRONMENT</source>
        <translation>UMGEBUNG</translation>
    </message>
    <message>
        <source>could not be written: </source>
        <translation>konnte nicht geschrieben werden: </translation>
    </message>
    <message>
        <source>expected a PLY header from &quot;ply&quot; to &quot;end_header&quot;, found none</source>
        <translation>erwartet wurde ein PLY-Kopf von „ply“ bis „end_header“, gefunden keiner</translation>
    </message>
    <message>
        <source>is read as ASCII STL, which has no room for metadata</source>
        <translation>wird als ASCII-STL gelesen, das keinen Platz für Metadaten hat</translation>
    </message>
    <message numerus="yes">
        <source>expected a header of 80 bytes and a facet count of 4, found %n byte(s)</source>
        <translation>
            <numerusform>erwartet wurden ein Kopf von 80 Bytes und eine Facettenzahl von 4, gefunden %n Byte</numerusform>
            <numerusform>erwartet wurden ein Kopf von 80 Bytes und eine Facettenzahl von 4, gefunden %n Bytes</numerusform>
        </translation>
    </message>
    <message>
        <source>&quot;%1&quot; has %2 x %3 pixels, which take %4 MiB; the limit is %5 MiB, and --image-limit %4 raises it</source>
        <translation>„%1“ hat %2 x %3 Bildpunkte, die %4 MiB belegen; die Grenze liegt bei %5 MiB, und --image-limit %4 hebt sie an</translation>
    </message>
    <message>
        <source>Most memory that an image may take, in MiB; 128 when not said</source>
        <translation>Höchster Speicherbedarf eines Bildes in MiB; 128, wenn nicht angegeben</translation>
    </message>
    <message numerus="yes">
        <source>expected two counts of 4 bytes, found %n byte(s)</source>
        <translation>
            <numerusform>erwartet wurden zwei Anzahlen von 4 Bytes, gefunden %n Byte</numerusform>
            <numerusform>erwartet wurden zwei Anzahlen von 4 Bytes, gefunden %n Bytes</numerusform>
        </translation>
    </message>
    <message>
        <source>in the file</source>
        <translation>in der Datei</translation>
    </message>
    <message>
        <source>indices</source>
        <translation>Indizes</translation>
    </message>
    <message>
        <source>expected counts from 0 on, found %1 vertices and %2 indices</source>
        <translation>erwartet wurden Anzahlen ab 0, gefunden %1 Eckpunkte und %2 Indizes</translation>
    </message>
    <message>
        <source>%1 vertices and %2 indices take %3 bytes, the file holds %4</source>
        <translation>%1 Eckpunkte und %2 Indizes belegen %3 Bytes, die Datei hat %4</translation>
    </message>
    <message>
        <source>vertices not finite</source>
        <translation>nicht endliche Eckpunkte</translation>
    </message>
    <message>
        <source>bounding box (mm)</source>
        <translation>Hüllquader (mm)</translation>
    </message>
    <message>
        <source>min</source>
        <translation>min</translation>
    </message>
    <message>
        <source>max</source>
        <translation>max</translation>
    </message>
    <message>
        <source>size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>by its suffix only</source>
        <translation>nur an der Endung</translation>
    </message>
    <message>
        <source>expected a file, found a link to &quot;%1&quot;, which does not exist</source>
        <translation>erwartet wurde eine Datei, gefunden ein Verweis auf „%1“, das nicht existiert</translation>
    </message>
    <message>
        <source>there is no such file</source>
        <translation>diese Datei gibt es nicht</translation>
    </message>
    <message>
        <source>expected a file, found a folder</source>
        <translation>erwartet wurde eine Datei, gefunden ein Ordner</translation>
    </message>
    <message>
        <source>expected a regular file, found a pipe, socket or device</source>
        <translation>erwartet wurde eine gewöhnliche Datei, gefunden eine Pipe, ein Socket oder ein Gerät</translation>
    </message>
    <message>
        <source>size in bytes</source>
        <translation>Größe in Bytes</translation>
    </message>
    <message>
        <source>neither the content nor the suffix is that of a format known here</source>
        <translation>weder Inhalt noch Endung gehören zu einem hier bekannten Format</translation>
    </message>
    <message>
        <source>format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>recognised</source>
        <translation>erkannt</translation>
    </message>
    <message>
        <source>scan metadata</source>
        <translation>Scan-Metadaten</translation>
    </message>
    <message>
        <source>imported</source>
        <translation>importiert</translation>
    </message>
    <message>
        <source>acquisition date</source>
        <translation>Aufnahmedatum</translation>
    </message>
    <message>
        <source>by its lines, which are those of an OBJ file</source>
        <translation>an ihren Zeilen, die die einer OBJ-Datei sind</translation>
    </message>
    <message>
        <source>vertices (v)</source>
        <translation>Eckpunkte (v)</translation>
    </message>
    <message>
        <source>texture coordinates (vt)</source>
        <translation>Texturkoordinaten (vt)</translation>
    </message>
    <message>
        <source>normals (vn)</source>
        <translation>Normalen (vn)</translation>
    </message>
    <message>
        <source>faces (f)</source>
        <translation>Flächen (f)</translation>
    </message>
    <message>
        <source>objects (o)</source>
        <translation>Objekte (o)</translation>
    </message>
    <message>
        <source>groups (g)</source>
        <translation>Gruppen (g)</translation>
    </message>
    <message>
        <source>vertices with colours, which are not read</source>
        <translation>Eckpunkte mit Farben, die nicht gelesen werden</translation>
    </message>
    <message>
        <source>corners</source>
        <translation>Ecken</translation>
    </message>
    <message>
        <source>style</source>
        <translation>Schreibweise</translation>
    </message>
    <message>
        <source>relative</source>
        <translation>relativ</translation>
    </message>
    <message>
        <source>count</source>
        <translation>Anzahl</translation>
    </message>
    <message>
        <source>faces</source>
        <translation>Flächen</translation>
    </message>
    <message>
        <source>name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>keyword</source>
        <translation>Schlüsselwort</translation>
    </message>
    <message>
        <source>lines that are not read</source>
        <translation>Zeilen, die nicht gelesen werden</translation>
    </message>
    <message>
        <source>axis</source>
        <translation>Achse</translation>
    </message>
    <message>
        <source>outside 0 to 1</source>
        <translation>außerhalb von 0 bis 1</translation>
    </message>
    <message>
        <source>texture coordinates</source>
        <translation>Texturkoordinaten</translation>
    </message>
    <message>
        <source>unused</source>
        <translation>unbenutzt</translation>
    </message>
    <message>
        <source>texture</source>
        <translation>Textur</translation>
    </message>
    <message>
        <source>replaced</source>
        <translation>ersetzt</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>fehlt</translation>
    </message>
    <message>
        <source>no image</source>
        <translation>kein Bild</translation>
    </message>
    <message>
        <source>over the limit</source>
        <translation>über der Grenze</translation>
    </message>
    <message>
        <source>found</source>
        <translation>gefunden</translation>
    </message>
    <message>
        <source>image</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>state</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>use</source>
        <translation>Verwendung</translation>
    </message>
    <message>
        <source>line</source>
        <translation>Zeile</translation>
    </message>
    <message>
        <source>images</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>material %1</source>
        <translation>Material %1</translation>
    </message>
    <message>
        <source>diffuse colour</source>
        <translation>diffuse Farbe</translation>
    </message>
    <message>
        <source>material library %1</source>
        <translation>Materialbibliothek %1</translation>
    </message>
    <message>
        <source>read up to line</source>
        <translation>gelesen bis Zeile</translation>
    </message>
    <message>
        <source>materials that are not defined</source>
        <translation>nicht definierte Materialien</translation>
    </message>
    <message>
        <source>as read</source>
        <translation>wie gelesen</translation>
    </message>
    <message>
        <source>facets</source>
        <translation>Facetten</translation>
    </message>
    <message>
        <source>normals</source>
        <translation>Normalen</translation>
    </message>
    <message>
        <source>computed</source>
        <translation>berechnet</translation>
    </message>
    <message>
        <source>texture in pixels</source>
        <translation>Textur in Bildpunkten</translation>
    </message>
    <message>
        <source>objects</source>
        <translation>Objekte</translation>
    </message>
    <message>
        <source>groups</source>
        <translation>Gruppen</translation>
    </message>
    <message>
        <source>position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>normal</source>
        <translation>Normale</translation>
    </message>
    <message>
        <source>colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>texture coordinate</source>
        <translation>Texturkoordinate</translation>
    </message>
    <message>
        <source>face colour</source>
        <translation>Farbe der Fläche</translation>
    </message>
    <message>
        <source>not looked at</source>
        <translation>nicht betrachtet</translation>
    </message>
    <message>
        <source>fails: a list of its own</source>
        <translation>scheitert: eine eigene Liste</translation>
    </message>
    <message>
        <source>fails: a type that takes no bytes</source>
        <translation>scheitert: ein Typ ohne Bytes</translation>
    </message>
    <message>
        <source>skipped</source>
        <translation>übersprungen</translation>
    </message>
    <message>
        <source>skipped, and its bytes shift the rest</source>
        <translation>übersprungen, und seine Bytes verschieben den Rest</translation>
    </message>
    <message>
        <source>by its first line, &quot;ply&quot;</source>
        <translation>an ihrer ersten Zeile, „ply“</translation>
    </message>
    <message>
        <source>list of %1, counted by %2</source>
        <translation>Liste von %1, gezählt mit %2</translation>
    </message>
    <message>
        <source>element</source>
        <translation>Element</translation>
    </message>
    <message>
        <source>properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message>
        <source>type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>elements</source>
        <translation>Elemente</translation>
    </message>
    <message>
        <source>channel</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>mean</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>alpha</source>
        <translation>Alpha</translation>
    </message>
    <message>
        <source>colours</source>
        <translation>Farben</translation>
    </message>
    <message>
        <source>size in pixels</source>
        <translation>Größe in Bildpunkten</translation>
    </message>
    <message>
        <source>ambient colour</source>
        <translation>Umgebungsfarbe</translation>
    </message>
    <message>
        <source>ambient intensity</source>
        <translation>Umgebungsintensität</translation>
    </message>
    <message>
        <source>diffuse intensity</source>
        <translation>diffuse Intensität</translation>
    </message>
    <message>
        <source>specular colour</source>
        <translation>Glanzfarbe</translation>
    </message>
    <message>
        <source>specular intensity</source>
        <translation>Glanzintensität</translation>
    </message>
    <message>
        <source>emissive colour</source>
        <translation>Leuchtfarbe</translation>
    </message>
    <message>
        <source>emissive intensity</source>
        <translation>Leuchtintensität</translation>
    </message>
    <message>
        <source>shininess</source>
        <translation>Glanz</translation>
    </message>
    <message>
        <source>transparency</source>
        <translation>Transparenz</translation>
    </message>
    <message>
        <source>base reflectance</source>
        <translation>Grundreflexion</translation>
    </message>
    <message>
        <source>detail noise</source>
        <translation>Detailrauschen</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>face colours</source>
        <translation>Farben der Flächen</translation>
    </message>
    <message>
        <source>other comments</source>
        <translation>andere Kommentare</translation>
    </message>
    <message>
        <source>header</source>
        <translation>Kopf</translation>
    </message>
    <message>
        <source>encoding</source>
        <translation>Kodierung</translation>
    </message>
    <message>
        <source>expected &quot;end_header&quot;, found the end of the file</source>
        <translation>erwartet wurde „end_header“, gefunden das Ende der Datei</translation>
    </message>
    <message>
        <source>expected &quot;ply&quot; in the first line, found &quot;%1&quot;</source>
        <translation>erwartet wurde „ply“ in der ersten Zeile, gefunden „%1“</translation>
    </message>
    <message>
        <source>expected a line of a PLY header, found &quot;%1&quot;</source>
        <translation>erwartet wurde eine Zeile eines PLY-Kopfs, gefunden „%1“</translation>
    </message>
    <message>
        <source>is encoded in ASCII; only binary PLY is read</source>
        <translation>ist in ASCII kodiert; nur binäres PLY wird gelesen</translation>
    </message>
    <message>
        <source>expected the format &quot;binary_little_endian&quot; or &quot;binary_big_endian&quot;, found &quot;%1&quot;</source>
        <translation>erwartet wurde das Format „binary_little_endian“ oder „binary_big_endian“, gefunden „%1“</translation>
    </message>
    <message>
        <source>has a list &quot;%1&quot;; the only list that is read is &quot;vertex_indices&quot;</source>
        <translation>hat eine Liste „%1“; die einzige Liste, die gelesen wird, ist „vertex_indices“</translation>
    </message>
    <message>
        <source>stores &quot;%1&quot; as &quot;%2&quot;, a type that is read as no bytes</source>
        <translation>speichert „%1“ als „%2“, einen Typ, der als null Bytes gelesen wird</translation>
    </message>
    <message>
        <source>has the elements %1; expected vertex, face and velquin_material first, in this order</source>
        <translation>hat die Elemente %1; erwartet wurden zuerst vertex, face und velquin_material, in dieser Reihenfolge</translation>
    </message>
    <message>
        <source>expected a vertex element of at least 3 properties, found %1</source>
        <translation>erwartet wurde ein Element vertex mit mindestens 3 Eigenschaften, gefunden %1</translation>
    </message>
    <message>
        <source>the header announces a body of %1 bytes, the file holds %2: %3 are missing</source>
        <translation>der Kopf kündigt einen Rumpf von %1 Bytes an, die Datei hat %2: es fehlen %3</translation>
    </message>
    <message numerus="yes">
        <source>has a face of %n corner(s); only triangles are read</source>
        <translation>
            <numerusform>hat eine Fläche mit %n Ecke; nur Dreiecke werden gelesen</numerusform>
            <numerusform>hat eine Fläche mit %n Ecken; nur Dreiecke werden gelesen</numerusform>
        </translation>
    </message>
    <message>
        <source>a face asks for a vertex that is not there</source>
        <translation>eine Fläche verlangt einen Eckpunkt, den es nicht gibt</translation>
    </message>
    <message numerus="yes">
        <source>holds %n point(s) and no faces; as a mesh it is not read</source>
        <translation>
            <numerusform>enthält %n Punkt und keine Flächen; als Netz wird sie nicht gelesen</numerusform>
            <numerusform>enthält %n Punkte und keine Flächen; als Netz wird sie nicht gelesen</numerusform>
        </translation>
    </message>
    <message>
        <source>faces have colours; such a file is read only where they are asked for</source>
        <translation>Flächen haben Farben; eine solche Datei wird nur gelesen, wo sie verlangt werden</translation>
    </message>
    <message>
        <source>by its header</source>
        <translation>an ihrem Kopf</translation>
    </message>
    <message>
        <source>depth</source>
        <translation>Tiefe</translation>
    </message>
    <message>
        <source>children</source>
        <translation>Kinder</translation>
    </message>
    <message>
        <source>nodes</source>
        <translation>Knoten</translation>
    </message>
    <message>
        <source>levels below the root</source>
        <translation>Ebenen unter der Wurzel</translation>
    </message>
    <message>
        <source>indices outside</source>
        <translation>Indizes außerhalb</translation>
    </message>
    <message>
        <source>lists of other lengths</source>
        <translation>Listen anderer Länge</translation>
    </message>
    <message>
        <source>tree</source>
        <translation>Baum</translation>
    </message>
    <message numerus="yes">
        <source>tree, its first %n node(s)</source>
        <translation>
            <numerusform>Baum, sein erster Knoten (%n)</numerusform>
            <numerusform>Baum, seine ersten %n Knoten</numerusform>
        </translation>
    </message>
    <message>
        <source>version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>expected version 1.0 or 2.0, found %1</source>
        <translation>erwartet wurde Version 1.0 oder 2.0, gefunden %1</translation>
    </message>
    <message>
        <source>expected a shape or a tree of shapes, found damage or an early end</source>
        <translation>erwartet wurde eine Form oder ein Baum von Formen, gefunden Schaden oder ein frühes Ende</translation>
    </message>
    <message>
        <source>holds</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>shape</source>
        <translation>Form</translation>
    </message>
    <message numerus="yes">
        <source>%n byte(s) (follows|follow) the shape</source>
        <translation>
            <numerusform>%n Byte folgt auf die Form</numerusform>
            <numerusform>%n Bytes folgen auf die Form</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n byte(s) (follows|follow) the tree</source>
        <translation>
            <numerusform>%n Byte folgt auf den Baum</numerusform>
            <numerusform>%n Bytes folgen auf den Baum</numerusform>
        </translation>
    </message>
    <message>
        <source>shape tree</source>
        <translation>Formenbaum</translation>
    </message>
    <message>
        <source>by its first line, which starts with &quot;solid&quot;</source>
        <translation>an ihrer ersten Zeile, die mit „solid“ beginnt</translation>
    </message>
    <message numerus="yes">
        <source>by its size, which is that of the %n facet(s) it claims</source>
        <translation>
            <numerusform>an ihrer Größe, die zu der %n Facette passt, die sie angibt</numerusform>
            <numerusform>an ihrer Größe, die zu den %n Facetten passt, die sie angibt</numerusform>
        </translation>
    </message>
    <message>
        <source>after cleaning</source>
        <translation>nach der Bereinigung</translation>
    </message>
    <message>
        <source>tags</source>
        <translation>Kennungen</translation>
    </message>
    <message>
        <source>the header says %1 facets = %2 bytes, the file holds %3 bytes, room for %4 facets</source>
        <translation>der Kopf sagt %1 Facetten = %2 Bytes, die Datei hat %3 Bytes, Platz für %4 Facetten</translation>
    </message>
    <message numerus="yes">
        <source>a binary STL of %n facet(s) whose header begins with &quot;solid&quot;: such a file is read as text, and as text it holds no vertices</source>
        <translation>
            <numerusform>ein binäres STL mit %n Facette, dessen Kopf mit „solid“ beginnt: eine solche Datei wird als Text gelesen, und als Text enthält sie keine Eckpunkte</numerusform>
            <numerusform>ein binäres STL mit %n Facetten, dessen Kopf mit „solid“ beginnt: eine solche Datei wird als Text gelesen, und als Text enthält sie keine Eckpunkte</numerusform>
        </translation>
    </message>
    <message>
        <source>begins with &quot;solid&quot; as text does, but holds binary data whose size is not that of the facets it claims</source>
        <translation>beginnt mit „solid“ wie Text, enthält aber binäre Daten, deren Größe nicht zu den angegebenen Facetten passt</translation>
    </message>
    <message>
        <source>expected lines that begin with &quot;vertex&quot;, found none</source>
        <translation>erwartet wurden Zeilen, die mit „vertex“ beginnen, gefunden keine</translation>
    </message>
    <message>
        <source>no facet has three different corners</source>
        <translation>keine Facette hat drei verschiedene Ecken</translation>
    </message>
    <message>
        <source>tag</source>
        <translation>Kennung</translation>
    </message>
    <message>
        <source>subTag</source>
        <translation>Unterkennung</translation>
    </message>
    <message>
        <source>area (mm²)</source>
        <translation>Fläche (mm²)</translation>
    </message>
    <message>
        <source>line %1: expected &quot;vertex&quot; and three numbers with spaces between, found &quot;%2&quot;</source>
        <translation>Zeile %1: erwartet wurden „vertex“ und drei Zahlen mit Leerzeichen dazwischen, gefunden „%2“</translation>
    </message>
    <message>
        <source>expected three vertices for each facet, found %1 vertices, the last in line %2</source>
        <translation>erwartet wurden drei Eckpunkte je Facette, gefunden %1 Eckpunkte, der letzte in Zeile %2</translation>
    </message>
    <message>
        <source>by its first line, which holds &quot;# Labeled&quot;, and the four counts in its second</source>
        <translation>an ihrer ersten Zeile, die „# Labeled“ enthält, und den vier Anzahlen in der zweiten</translation>
    </message>
    <message>
        <source>tetrahedra</source>
        <translation>Tetraeder</translation>
    </message>
    <message>
        <source>face rows</source>
        <translation>Flächenzeilen</translation>
    </message>
    <message>
        <source>bound-face rows</source>
        <translation>Randflächenzeilen</translation>
    </message>
    <message>
        <source>points</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>with unknown points</source>
        <translation>mit unbekannten Punkten</translation>
    </message>
    <message>
        <source>flat</source>
        <translation>flach</translation>
    </message>
    <message>
        <source>inverted</source>
        <translation>umgestülpt</translation>
    </message>
    <message>
        <source>boundary</source>
        <translation>Rand</translation>
    </message>
    <message>
        <source>edges</source>
        <translation>Kanten</translation>
    </message>
    <message>
        <source>Euler characteristic</source>
        <translation>Euler-Charakteristik</translation>
    </message>
    <message>
        <source>open edges</source>
        <translation>offene Kanten</translation>
    </message>
    <message>
        <source>problem</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>bad references</source>
        <translation>falsche Verweise</translation>
    </message>
    <message>
        <source>by its first line, which is &quot;FemBoundaryConditions&quot;</source>
        <translation>an ihrer ersten Zeile, „FemBoundaryConditions“</translation>
    </message>
    <message>
        <source>conditions</source>
        <translation>Bedingungen</translation>
    </message>
    <message>
        <source>volume mesh</source>
        <translation>Volumennetz</translation>
    </message>
    <message>
        <source>boundary conditions</source>
        <translation>Randbedingungen</translation>
    </message>
    <message>
        <source>Show failures only, no warnings</source>
        <translation>Nur Fehlschläge zeigen, keine Warnungen</translation>
    </message>
    <message>
        <source>Show more of what is done, on stderr</source>
        <translation>Mehr von dem zeigen, was geschieht, auf der Standardfehlerausgabe</translation>
    </message>
    <message>
        <source>Exit with 5 when all went well but for warnings</source>
        <translation>Mit 5 enden, wenn alles gut ging bis auf Warnungen</translation>
    </message>
    <message>
        <source>Colour messages: auto, always or never</source>
        <translation>Farbige Meldungen: auto, always (immer) oder never (nie)</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>Aufruf</translation>
    </message>
    <message>
        <source>SUBCOMMAND</source>
        <translation>BEFEHL</translation>
    </message>
    <message>
        <source>Positionals</source>
        <translation>Argumente</translation>
    </message>
    <message>
        <source>REQUIRED</source>
        <translation>ERFORDERLICH</translation>
    </message>
    <message>
        <source>Needs</source>
        <translation>Braucht</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>Subcommands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>see &quot;%1 --help&quot;</source>
        <translation>siehe „%1 --help“</translation>
    </message>
    <message>
        <source>Looks at, checks and converts surface meshes of dental and maxillofacial scans.</source>
        <translation>Zeigt, prüft und wandelt Oberflächennetze zahnmedizinischer und kieferchirurgischer Scans um.</translation>
    </message>
    <message>
        <source>Print this help message and exit</source>
        <translation>Diese Hilfe ausgeben und enden</translation>
    </message>
    <message>
        <source>Display program version information and exit</source>
        <translation>Die Version des Programms ausgeben und enden</translation>
    </message>
    <message>
        <source>the results could not be written to the standard output</source>
        <translation>die Ergebnisse konnten nicht auf die Standardausgabe geschrieben werden</translation>
    </message>
    <message numerus="yes">
        <source> (%n such face(s))</source>
        <translation>
            <numerusform> (%n solche Fläche)</numerusform>
            <numerusform> (%n solche Flächen)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source> (%n such line(s))</source>
        <translation>
            <numerusform> (%n solche Zeile)</numerusform>
            <numerusform> (%n solche Zeilen)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source> (%n such corner(s))</source>
        <translation>
            <numerusform> (%n solche Ecke)</numerusform>
            <numerusform> (%n solche Ecken)</numerusform>
        </translation>
    </message>
    <message>
        <source>a face of 4 corners; only triangles are read</source>
        <translation>eine Fläche mit 4 Ecken; nur Dreiecke werden gelesen</translation>
    </message>
    <message>
        <source>too few numbers: expected 3 behind &quot;v&quot; and &quot;vn&quot;, 2 behind &quot;vt&quot;</source>
        <translation>zu wenige Zahlen: erwartet wurden 3 hinter „v“ und „vn“, 2 hinter „vt“</translation>
    </message>
    <message>
        <source>a face asks for &quot;%1&quot; number %2, the file has %3</source>
        <translation>eine Fläche verlangt „%1“ Nummer %2, die Datei hat %3</translation>
    </message>
    <message>
        <source>expected an index from 1 on as first number of each corner</source>
        <translation>erwartet wurde ein Index ab 1 als erste Zahl jeder Ecke</translation>
    </message>
    <message>
        <source>a face with relative (negative) indices; these are not read</source>
        <translation>eine Fläche mit relativen (negativen) Indizes; diese werden nicht gelesen</translation>
    </message>
    <message>
        <source>names several material libraries that exist; one is read</source>
        <translation>nennt mehrere Materialbibliotheken, die es gibt; eine wird gelesen</translation>
    </message>
    <message>
        <source>some corners of faces have a texture coordinate and others have none</source>
        <translation>einige Ecken von Flächen haben eine Texturkoordinate, andere keine</translation>
    </message>
    <message>
        <source>its textures do not fit into one atlas of at most 8192 x 8192 pixels</source>
        <translation>ihre Texturen passen nicht in einen Atlas von höchstens 8192 x 8192 Bildpunkten</translation>
    </message>
    <message>
        <source>expected vertices, found none</source>
        <translation>erwartet wurden Eckpunkte, gefunden keine</translation>
    </message>
    <message>
        <source>could not be read: </source>
        <translation>konnte nicht gelesen werden: </translation>
    </message>
    <message>
        <source>mixed</source>
        <translation>gemischt</translation>
    </message>
    <message>
        <source>the file could not be stored: </source>
        <translation>die Datei konnte nicht dauerhaft gespeichert werden: </translation>
    </message>
    <message>
        <source>nothing was written; is the disk full?</source>
        <translation>es wurde nichts geschrieben; ist der Datenträger voll?</translation>
    </message>
    <message>
        <source>expected to write %1 bytes, found %2 in the file; is the disk full?</source>
        <translation>es sollten %1 Bytes geschrieben werden, in der Datei sind %2; ist der Datenträger voll?</translation>
    </message>
    <message>
        <source>the file could not be moved into place: </source>
        <translation>die Datei konnte nicht an ihren Platz verschoben werden: </translation>
    </message>
    <message>
        <source>is a link to a file that does not exist</source>
        <translation>ist ein Verweis auf eine Datei, die nicht existiert</translation>
    </message>
    <message>
        <source>is a folder</source>
        <translation>ist ein Ordner</translation>
    </message>
    <message>
        <source>is a pipe, socket or device, and is not replaced</source>
        <translation>ist eine Pipe, ein Socket oder ein Gerät und wird nicht ersetzt</translation>
    </message>
    <message>
        <source>exists already; --force replaces it</source>
        <translation>existiert schon; --force ersetzt es</translation>
    </message>
    <message>
        <source>the folder &quot;%1&quot; does not exist</source>
        <translation>der Ordner „%1“ existiert nicht</translation>
    </message>
    <message>
        <source>the folder &quot;%1&quot; cannot be written to: %2</source>
        <translation>in den Ordner „%1“ kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>interrupted; nothing was written</source>
        <translation>unterbrochen; nichts wurde geschrieben</translation>
    </message>
    <message>
        <source>cannot be written: </source>
        <translation>kann nicht geschrieben werden: </translation>
    </message>
    <message numerus="yes">
        <source>%n facet(s) (is|are) more than an STL file can count</source>
        <translation>
            <numerusform>%n Facette ist mehr, als eine STL-Datei zählen kann</numerusform>
            <numerusform>%n Facetten sind mehr, als eine STL-Datei zählen kann</numerusform>
        </translation>
    </message>
    <message>
        <source>&quot;%1&quot;: expected a rule such as 3=31, 4/1=32/0 or *=1; tags go from 0 to 255, subTags from -128 to 127</source>
        <translation>„%1“: erwartet wurde eine Regel wie 3=31, 4/1=32/0 oder *=1; Kennungen gehen von 0 bis 255, Unterkennungen von -128 bis 127</translation>
    </message>
    <message>
        <source>%1: no facet for the rule %2</source>
        <translation>%1: keine Facette für die Regel %2</translation>
    </message>
    <message>
        <source>expected a file name that ends with .stl</source>
        <translation>erwartet wurde ein Dateiname, der auf .stl endet</translation>
    </message>
    <message>
        <source>is read as ASCII STL, which has no tags</source>
        <translation>wird als ASCII-STL gelesen, das keine Kennungen hat</translation>
    </message>
    <message>
        <source>expected a binary STL of %1 facets = %2 bytes, as its header says, found %3 bytes</source>
        <translation>erwartet wurde ein binäres STL mit %1 Facetten = %2 Bytes, wie sein Kopf sagt, gefunden %3 Bytes</translation>
    </message>
    <message>
        <source>expected %1 facets, could read %2: %3</source>
        <translation>erwartet wurden %1 Facetten, lesbar waren %2: %3</translation>
    </message>
    <message>
        <source>expected the suffix .%1</source>
        <translation>erwartet wurde die Endung .%1</translation>
    </message>
    <message>
        <source>%1: %2 x %3 pixels</source>
        <translation>%1: %2 x %3 Bildpunkte</translation>
    </message>
    <message>
        <source>a PLY header cannot name an image &quot;%1&quot;: spaces in a row, at an end, and control letters get lost</source>
        <translation>ein PLY-Kopf kann kein Bild „%1“ nennen: mehrere Leerzeichen hintereinander oder am Rand und Steuerzeichen gehen verloren</translation>
    </message>
    <message>
        <source>the image &quot;%1&quot; does not exist</source>
        <translation>das Bild „%1“ existiert nicht</translation>
    </message>
    <message>
        <source>an image stands before the first &quot;newmtl&quot;</source>
        <translation>ein Bild steht vor dem ersten „newmtl“</translation>
    </message>
    <message>
        <source>%1, line %2: %3</source>
        <translation>%1, Zeile %2: %3</translation>
    </message>
    <message>
        <source>the material library &quot;%1&quot; does not exist</source>
        <translation>die Materialbibliothek „%1“ existiert nicht</translation>
    </message>
    <message>
        <source>has no texture: it names no material library</source>
        <translation>hat keine Textur: sie nennt keine Materialbibliothek</translation>
    </message>
    <message>
        <source>has no texture: no material of its faces names an image</source>
        <translation>hat keine Textur: kein Material ihrer Flächen nennt ein Bild</translation>
    </message>
    <message>
        <source>has no texture coordinates</source>
        <translation>hat keine Texturkoordinaten</translation>
    </message>
    <message>
        <source>its texture could not be read</source>
        <translation>ihre Textur konnte nicht gelesen werden</translation>
    </message>
    <message>
        <source>has no texture: its header names none</source>
        <translation>hat keine Textur: ihr Kopf nennt keine</translation>
    </message>
    <message>
        <source>has colours of its own; these go before its texture</source>
        <translation>hat eigene Farben; diese gehen ihrer Textur vor</translation>
    </message>
    <message>
        <source>expected one of the suffixes .obj, .ply</source>
        <translation>erwartet wurde eine der Endungen .obj, .ply</translation>
    </message>
    <message>
        <source>Textured scan to read: .obj, .ply</source>
        <translation>Zu lesender Scan mit Textur: .obj, .ply</translation>
    </message>
    <message>
        <source>Image to write, .png</source>
        <translation>Zu schreibendes Bild, .png</translation>
    </message>
    <message>
        <source>Mesh to write, .ply, whose texture is this image</source>
        <translation>Zu schreibendes Netz, .ply, dessen Textur dieses Bild ist</translation>
    </message>
    <message>
        <source>Replace files that exist</source>
        <translation>Vorhandene Dateien ersetzen</translation>
    </message>
    <message>
        <source>Packs the textures of a scan into one image, and writes a mesh that uses it.</source>
        <translation>Packt die Texturen eines Scans in ein Bild und schreibt ein Netz, das es benutzt.</translation>
    </message>
    <message>
        <source>expected the suffix .ply</source>
        <translation>erwartet wurde die Endung .ply</translation>
    </message>
    <message>
        <source>File to write, .ply</source>
        <translation>Zu schreibende Datei, .ply</translation>
    </message>
    <message>
        <source>Replace OUT when it exists</source>
        <translation>OUT ersetzen, wenn es existiert</translation>
    </message>
    <message>
        <source>Turns the texture of a scan into colours of its vertices.</source>
        <translation>Macht aus der Textur eines Scans Farben seiner Eckpunkte.</translation>
    </message>
    <message>
        <source>How the meshes look: own (what a PLY file says), default, metal or distractor</source>
        <translation>Aussehen der Netze: own (was eine PLY-Datei sagt), default, metal oder distractor</translation>
    </message>
    <message>
        <source>Shows which shapes load, which are skipped, and why.</source>
        <translation>Zeigt, welche Formen geladen und welche übergangen werden, und warum.</translation>
    </message>
    <message>
        <source>An associated-shapes document</source>
        <translation>Ein Dokument verknüpfter Formen</translation>
    </message>
    <message>
        <source>Print JSON, schema surfaceio.bundle/1</source>
        <translation>JSON ausgeben, Schema surfaceio.bundle/1</translation>
    </message>
    <message>
        <source>Writes the document that lists some meshes.</source>
        <translation>Schreibt das Dokument, das einige Netze aufführt.</translation>
    </message>
    <message>
        <source>File to write</source>
        <translation>Zu schreibende Datei</translation>
    </message>
    <message>
        <source>Files to list: .stl, .ply, .obj</source>
        <translation>Aufzuführende Dateien: .stl, .ply, .obj</translation>
    </message>
    <message>
        <source>Writes each shape as a PLY file that carries its material.</source>
        <translation>Schreibt jede Form als PLY-Datei, die ihr Material mitführt.</translation>
    </message>
    <message>
        <source>Folder to write to; made when it is missing</source>
        <translation>Ordner, in den geschrieben wird; er wird angelegt, wenn er fehlt</translation>
    </message>
    <message>
        <source>Lists, writes and takes apart the documents that pair mesh files with materials.</source>
        <translation>Zeigt, schreibt und zerlegt die Dokumente, die Netzdateien und Materialien verbinden.</translation>
    </message>
    <message numerus="yes">
        <source>%n error(s)</source>
        <translation>
            <numerusform>%n Fehler</numerusform>
            <numerusform>%n Fehler</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n warning(s)</source>
        <translation>
            <numerusform>%n Warnung</numerusform>
            <numerusform>%n Warnungen</numerusform>
        </translation>
    </message>
    <message>
        <source>: sound</source>
        <translation>: in Ordnung</translation>
    </message>
    <message>
        <source>Files and folders to check; conditions behind the volume mesh they are for</source>
        <translation>Zu prüfende Dateien und Ordner; Bedingungen hinter dem Volumennetz, zu dem sie gehören</translation>
    </message>
    <message>
        <source>Print JSON, schema surfaceio.check/1</source>
        <translation>JSON ausgeben, Schema surfaceio.check/1</translation>
    </message>
    <message>
        <source>Finds out what is wrong with a file, and says what to do about it.</source>
        <translation>Findet heraus, was an einer Datei nicht stimmt, und sagt, was dagegen zu tun ist.</translation>
    </message>
    <message>
        <source>The shell: bash, zsh or fish</source>
        <translation>Die Shell: bash, zsh oder fish</translation>
    </message>
    <message>
        <source>Prints a script that lets a shell complete the verbs, options and values of this program.</source>
        <translation>Gibt ein Skript aus, mit dem eine Shell die Befehle, Optionen und Werte dieses Programms ergänzt.</translation>
    </message>
    <message>
        <source>Prints the manual page.</source>
        <translation>Gibt die Handbuchseite aus.</translation>
    </message>
    <message>
        <source>expected yyyy-mm-dd</source>
        <translation>erwartet wurde jjjj-mm-tt</translation>
    </message>
    <message>
        <source>found no files of the suffixes %1</source>
        <translation>keine Dateien mit den Endungen %1 gefunden</translation>
    </message>
    <message>
        <source>: expected a folder, found a file</source>
        <translation>: erwartet wurde ein Ordner, gefunden eine Datei</translation>
    </message>
    <message>
        <source>interrupted; %1 of %2 files were converted</source>
        <translation>unterbrochen; %1 von %2 Dateien wurden umgewandelt</translation>
    </message>
    <message>
        <source>%1 of %2 files failed</source>
        <translation>%1 von %2 Dateien sind fehlgeschlagen</translation>
    </message>
    <message>
        <source>%1 of %2 files were not tried, as --fail-fast was given</source>
        <translation>%1 von %2 Dateien wurden nicht versucht, da --fail-fast angegeben war</translation>
    </message>
    <message numerus="yes">
        <source>expected IN and OUT, or --to SUFFIX for several files; found %n file(s)</source>
        <translation>
            <numerusform>erwartet wurden IN und OUT, oder --to SUFFIX für mehrere Dateien; gefunden %n Datei</numerusform>
            <numerusform>erwartet wurden IN und OUT, oder --to SUFFIX für mehrere Dateien; gefunden %n Dateien</numerusform>
        </translation>
    </message>
    <message>
        <source>Convert every FILE to this suffix: </source>
        <translation>Jedes FILE in diese Endung umwandeln: </translation>
    </message>
    <message>
        <source>With --to: where the files go; beside each when not given</source>
        <translation>Mit --to: wohin die Dateien kommen; ohne Angabe neben jede Datei</translation>
    </message>
    <message>
        <source>Files converted at a time; as many as there are processors</source>
        <translation>Gleichzeitig umgewandelte Dateien; ohne Angabe so viele wie Prozessoren</translation>
    </message>
    <message>
        <source>Only print what would be converted to what</source>
        <translation>Nur ausgeben, was in was umgewandelt würde</translation>
    </message>
    <message>
        <source>Begin no other file after one failed</source>
        <translation>Keine weitere Datei beginnen, nachdem eine fehlgeschlagen ist</translation>
    </message>
    <message>
        <source>Print what became of each file as JSON, schema surfaceio.convert/1</source>
        <translation>Ausgeben, was aus jeder Datei wurde, als JSON, Schema surfaceio.convert/1</translation>
    </message>
    <message>
        <source>Scan metadata: the scanner&apos;s name</source>
        <translation>Scan-Metadaten: der Name des Scanners</translation>
    </message>
    <message>
        <source>Scan metadata: its serial number</source>
        <translation>Scan-Metadaten: seine Seriennummer</translation>
    </message>
    <message>
        <source>Scan metadata: the scan came in from outside</source>
        <translation>Scan-Metadaten: der Scan kam von außen</translation>
    </message>
    <message>
        <source>Scan metadata: version of its software</source>
        <translation>Scan-Metadaten: Version seiner Software</translation>
    </message>
    <message>
        <source>Scan metadata: date of acquisition, yyyy-mm-dd</source>
        <translation>Scan-Metadaten: Aufnahmedatum, jjjj-mm-tt</translation>
    </message>
    <message>
        <source>IN and OUT; with --to any number of files, folders and quoted patterns. Read are %1, written %2</source>
        <translation>IN und OUT; mit --to beliebig viele Dateien, Ordner und Muster in Anführungszeichen. Gelesen werden %1, geschrieben %2</translation>
    </message>
    <message>
        <source>PLY: write the alpha of colours</source>
        <translation>PLY: das Alpha der Farben schreiben</translation>
    </message>
    <message>
        <source>PLY: write a material, metal or distractor</source>
        <translation>PLY: ein Material schreiben, metal oder distractor</translation>
    </message>
    <message>
        <source>OBJ, PLY: what becomes of a texture; bake makes it colours, none leaves it out</source>
        <translation>OBJ, PLY: was aus einer Textur wird; bake macht Farben daraus, none lässt sie weg</translation>
    </message>
    <message>
        <source>Writes meshes as files of another kind; the suffixes say which.</source>
        <translation>Schreibt Netze als Dateien anderer Art; die Endungen sagen, welcher.</translation>
    </message>
    <message>
        <source>suffix</source>
        <translation>Endung</translation>
    </message>
    <message>
        <source>info</source>
        <translation>info</translation>
    </message>
    <message>
        <source>convert from</source>
        <translation>umwandeln aus</translation>
    </message>
    <message>
        <source>convert to</source>
        <translation>umwandeln in</translation>
    </message>
    <message>
        <source>formats</source>
        <translation>Formate</translation>
    </message>
    <message>
        <source>Print JSON, schema surfaceio.formats/1</source>
        <translation>JSON ausgeben, Schema surfaceio.formats/1</translation>
    </message>
    <message>
        <source>Lists the file formats that are known, and what can be done with each.</source>
        <translation>Nennt die bekannten Dateiformate und was mit jedem möglich ist.</translation>
    </message>
    <message>
        <source>expected one of the suffixes .stl, .ply</source>
        <translation>erwartet wurde eine der Endungen .stl, .ply</translation>
    </message>
    <message>
        <source>no scan metadata</source>
        <translation>keine Scan-Metadaten</translation>
    </message>
    <message>
        <source>the %1 &quot;%2&quot; is stored as &quot;%3&quot;</source>
        <translation>%1 „%2“ wird als „%3“ gespeichert</translation>
    </message>
    <message>
        <source>expected a single line</source>
        <translation>erwartet wurde eine einzige Zeile</translation>
    </message>
    <message>
        <source>yes or no</source>
        <translation>yes (ja) oder no (nein)</translation>
    </message>
    <message>
        <source>Date of acquisition, yyyy-mm-dd</source>
        <translation>Aufnahmedatum, jjjj-mm-tt</translation>
    </message>
    <message>
        <source>Prints the scan metadata of a file.</source>
        <translation>Gibt die Scan-Metadaten einer Datei aus.</translation>
    </message>
    <message>
        <source>Print JSON, schema surfaceio.header/1</source>
        <translation>JSON ausgeben, Schema surfaceio.header/1</translation>
    </message>
    <message>
        <source>Changes what is given and keeps the rest.</source>
        <translation>Ändert, was angegeben ist, und behält den Rest.</translation>
    </message>
    <message>
        <source>Takes the scan metadata out of a file.</source>
        <translation>Nimmt die Scan-Metadaten aus einer Datei heraus.</translation>
    </message>
    <message>
        <source>A binary STL or PLY file</source>
        <translation>Eine binäre STL- oder PLY-Datei</translation>
    </message>
    <message>
        <source>Shows and changes the scan metadata in a binary STL or PLY file; the mesh keeps every byte.</source>
        <translation>Zeigt und ändert die Scan-Metadaten in einer binären STL- oder PLY-Datei; vom Netz bleibt jedes Byte.</translation>
    </message>
    <message>
        <source>Files to look at</source>
        <translation>Anzusehende Dateien</translation>
    </message>
    <message>
        <source>Print JSON, schema surfaceio.info/1</source>
        <translation>JSON ausgeben, Schema surfaceio.info/1</translation>
    </message>
    <message>
        <source>Shows what a mesh file holds, and what is wrong with one that cannot be read.</source>
        <translation>Zeigt, was eine Netzdatei enthält, und was an einer unlesbaren nicht stimmt.</translation>
    </message>
    <message>
        <source>expected the suffix .png</source>
        <translation>erwartet wurde die Endung .png</translation>
    </message>
    <message>
        <source>File to show: %1</source>
        <translation>Zu zeigende Datei: %1</translation>
    </message>
    <message>
        <source>Picture to write, .png</source>
        <translation>Zu schreibendes Bild, .png</translation>
    </message>
    <message>
        <source>Width and height in pixels; with --sheet, of each view</source>
        <translation>Breite und Höhe in Bildpunkten; mit --sheet die jeder Ansicht</translation>
    </message>
    <message>
        <source>Where to look from: front, occlusal, left, right or iso</source>
        <translation>Blickrichtung: front, occlusal, left, right oder iso</translation>
    </message>
    <message>
        <source>What colours it: auto, tag, colour or normal</source>
        <translation>Was die Farbe gibt: auto, tag, colour oder normal</translation>
    </message>
    <message>
        <source>All views on one picture</source>
        <translation>Alle Ansichten auf einem Bild</translation>
    </message>
    <message>
        <source>Replace the picture when it exists</source>
        <translation>Das Bild ersetzen, wenn es existiert</translation>
    </message>
    <message>
        <source>Draws a picture of a mesh, without a display or a graphics card.</source>
        <translation>Zeichnet ein Bild eines Netzes, ohne Bildschirm und ohne Grafikkarte.</translation>
    </message>
    <message>
        <source>File to write: %1</source>
        <translation>Zu schreibende Datei: %1</translation>
    </message>
    <message>
        <source>How many facets, exactly</source>
        <translation>Genaue Anzahl der Facetten</translation>
    </message>
    <message>
        <source>Another seed gives another mouth</source>
        <translation>Ein anderer Startwert gibt ein anderes Gebiss</translation>
    </message>
    <message>
        <source>Writes a synthetic scan of a lower dental arch, the same on every run; each tooth has its own facet tag.</source>
        <translation>Schreibt einen künstlichen Scan eines unteren Zahnbogens, bei jedem Aufruf denselben; jeder Zahn hat eine eigene Facettenkennung.</translation>
    </message>
    <message>
        <source>Prints the tags of a file, their facets and areas.</source>
        <translation>Gibt die Kennungen einer Datei, ihre Facetten und Flächeninhalte aus.</translation>
    </message>
    <message>
        <source>A binary STL file</source>
        <translation>Eine binäre STL-Datei</translation>
    </message>
    <message>
        <source>Print JSON, schema surfaceio.tags/1</source>
        <translation>JSON ausgeben, Schema surfaceio.tags/1</translation>
    </message>
    <message>
        <source>Writes the facets of each tag to a file of its own, and prints the names.</source>
        <translation>Schreibt die Facetten jeder Kennung in eine eigene Datei und gibt die Namen aus.</translation>
    </message>
    <message>
        <source>Name of each file, from {name}, {tag} and {subTag}</source>
        <translation>Name jeder Datei, aus {name}, {tag} und {subTag}</translation>
    </message>
    <message>
        <source>Where the files go</source>
        <translation>Wohin die Dateien kommen</translation>
    </message>
    <message>
        <source>Print the names as JSON, schema surfaceio.split/1</source>
        <translation>Die Namen als JSON ausgeben, Schema surfaceio.split/1</translation>
    </message>
    <message>
        <source>Puts the facets of several files into one.</source>
        <translation>Legt die Facetten mehrerer Dateien in eine.</translation>
    </message>
    <message>
        <source>Binary STL files; TAG=FILE or TAG/SUBTAG=FILE gives all facets a tag</source>
        <translation>Binäre STL-Dateien; TAG=FILE oder TAG/SUBTAG=FILE gibt allen Facetten eine Kennung</translation>
    </message>
    <message>
        <source>Replace the file when it exists</source>
        <translation>Die Datei ersetzen, wenn sie existiert</translation>
    </message>
    <message>
        <source>Gives facets other tags.</source>
        <translation>Gibt Facetten andere Kennungen.</translation>
    </message>
    <message>
        <source>OLD=NEW, each TAG, TAG/SUBTAG or *; the first that fits counts</source>
        <translation>OLD=NEW, jeweils TAG, TAG/SUBTAG oder *; die erste passende Regel zählt</translation>
    </message>
    <message>
        <source>Shows, splits, merges and changes the facet tags of binary STL files; coordinates keep every bit.</source>
        <translation>Zeigt, trennt, vereinigt und ändert die Facettenkennungen binärer STL-Dateien; von den Koordinaten bleibt jedes Bit.</translation>
    </message>
    <message>
        <source>the file ends before line %1: expected %2</source>
        <translation>die Datei endet vor Zeile %1: erwartet: %2</translation>
    </message>
    <message>
        <source>line %1: expected %2, found &quot;%3&quot;</source>
        <translation>Zeile %1: erwartet: %2, gefunden „%3“</translation>
    </message>
    <message>
        <source>point %1 of %2, three numbers with single blanks between</source>
        <translation>Punkt %1 von %2, drei Zahlen mit einzelnen Leerzeichen dazwischen</translation>
    </message>
    <message>
        <source>face row %1 of %2, five integers with single blanks between</source>
        <translation>Flächenzeile %1 von %2, fünf ganze Zahlen mit einzelnen Leerzeichen dazwischen</translation>
    </message>
    <message>
        <source>bound-face row %1 of %2, five integers with single blanks between</source>
        <translation>Randflächenzeile %1 von %2, fünf ganze Zahlen mit einzelnen Leerzeichen dazwischen</translation>
    </message>
    <message>
        <source>a header with &quot;# Labeled&quot;</source>
        <translation>ein Kopf mit „# Labeled“</translation>
    </message>
    <message>
        <source>four counts (tetrahedra, faces, bound faces, points) that the file can hold</source>
        <translation>vier Anzahlen (Tetraeder, Flächen, Randflächen, Punkte), die die Datei enthalten kann</translation>
    </message>
    <message>
        <source>the file ends before line 4: expected the number of conditions</source>
        <translation>die Datei endet vor Zeile 4: erwartet wurde die Anzahl der Bedingungen</translation>
    </message>
    <message>
        <source>the number of conditions</source>
        <translation>die Anzahl der Bedingungen</translation>
    </message>
    <message>
        <source>condition %1 of %2, an index and three numbers with single blanks between</source>
        <translation>Bedingung %1 von %2, ein Index und drei Zahlen mit einzelnen Leerzeichen dazwischen</translation>
    </message>
    <message>
        <source>a face row refers to tetrahedron %1, of %2</source>
        <translation>eine Flächenzeile bezieht sich auf Tetraeder %1, von %2</translation>
    </message>
    <message>
        <source>a face row refers to point %1, of %2</source>
        <translation>eine Flächenzeile bezieht sich auf Punkt %1, von %2</translation>
    </message>
    <message>
        <source>a bound-face row refers to tetrahedron %1, of %2</source>
        <translation>eine Randflächenzeile bezieht sich auf Tetraeder %1, von %2</translation>
    </message>
    <message>
        <source>a bound-face row refers to point %1, of %2</source>
        <translation>eine Randflächenzeile bezieht sich auf Punkt %1, von %2</translation>
    </message>
    <message>
        <source>File to write, .vmesh</source>
        <translation>Zu schreibende Datei, .vmesh</translation>
    </message>
    <message>
        <source>Writes the tetrahedra of a file of a mesher as a volume mesh.</source>
        <translation>Schreibt die Tetraeder aus der Datei eines Vernetzers als Volumennetz.</translation>
    </message>
    <message>
        <source>Gmsh file (.msh, version 2.2) or VTK file (.vtk), ASCII</source>
        <translation>Gmsh-Datei (.msh, Version 2.2) oder VTK-Datei (.vtk), ASCII</translation>
    </message>
    <message>
        <source>Keep points that no tetrahedron has, so that all keep their numbers</source>
        <translation>Punkte behalten, die kein Tetraeder hat, damit alle ihre Nummern behalten</translation>
    </message>
    <message>
        <source>Print JSON, schema surfaceio.vmesh-from/1</source>
        <translation>JSON ausgeben, Schema surfaceio.vmesh-from/1</translation>
    </message>
    <message>
        <source>Makes the face and bound-face rows of a volume mesh anew.</source>
        <translation>Macht die Flächen- und Randflächenzeilen eines Volumennetzes neu.</translation>
    </message>
    <message>
        <source>A volume mesh</source>
        <translation>Ein Volumennetz</translation>
    </message>
    <message>
        <source>Print JSON, schema surfaceio.vmesh-faces/1</source>
        <translation>JSON ausgeben, Schema surfaceio.vmesh-faces/1</translation>
    </message>
    <message>
        <source>Prints boundary conditions: sums, and each point with its value.</source>
        <translation>Gibt Randbedingungen aus: Summen, und jeden Punkt mit seinem Wert.</translation>
    </message>
    <message>
        <source>A boundary-conditions file</source>
        <translation>Eine Datei mit Randbedingungen</translation>
    </message>
    <message>
        <source>The volume mesh that they are for; shows where the points are</source>
        <translation>Das Volumennetz, zu dem sie gehören; zeigt, wo die Punkte liegen</translation>
    </message>
    <message>
        <source>Print JSON, schema surfaceio.conditions/1</source>
        <translation>JSON ausgeben, Schema surfaceio.conditions/1</translation>
    </message>
    <message>
        <source>Makes and mends volume meshes and shows boundary conditions; info, check and convert take both, too.</source>
        <translation>Erzeugt und repariert Volumennetze und zeigt Randbedingungen; auch info, check und convert nehmen beides.</translation>
    </message>
    <message>
        <source>lines</source>
        <translation>Linien</translation>
    </message>
    <message>
        <source>quadrangles</source>
        <translation>Vierecke</translation>
    </message>
    <message>
        <source>hexahedra</source>
        <translation>Hexaeder</translation>
    </message>
    <message>
        <source>prisms</source>
        <translation>Prismen</translation>
    </message>
    <message>
        <source>pyramids</source>
        <translation>Pyramiden</translation>
    </message>
    <message>
        <source>polygons</source>
        <translation>Vielecke</translation>
    </message>
    <message>
        <source>polyhedra</source>
        <translation>Polyeder</translation>
    </message>
    <message>
        <source>line %1: a condition refers to point %2, of %3</source>
        <translation>Zeile %1: eine Bedingung bezieht sich auf Punkt %2, von %3</translation>
    </message>
    <message>
        <source>component</source>
        <translation>Komponente</translation>
    </message>
    <message>
        <source>least</source>
        <translation>kleinste</translation>
    </message>
    <message>
        <source>greatest</source>
        <translation>größte</translation>
    </message>
    <message>
        <source>sum</source>
        <translation>Summe</translation>
    </message>
    <message>
        <source>point</source>
        <translation>Punkt</translation>
    </message>
    <message>
        <source>value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>position (mm)</source>
        <translation>Position (mm)</translation>
    </message>
    <message>
        <source>different points</source>
        <translation>verschiedene Punkte</translation>
    </message>
    <message>
        <source>that are zero</source>
        <translation>davon null</translation>
    </message>
    <message>
        <source>components</source>
        <translation>Komponenten</translation>
    </message>
    <message>
        <source>rows</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>%1: %2 face rows with a point that their tetrahedron does not have are lost, the first in line %3</source>
        <translation>%1: %2 Flächenzeilen mit einem Punkt, den ihr Tetraeder nicht hat, gehen verloren, die erste in Zeile %3</translation>
    </message>
    <message>
        <source>written</source>
        <translation>geschrieben</translation>
    </message>
    <message>
        <source>kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>with nodes on edges</source>
        <translation>mit Knoten auf Kanten</translation>
    </message>
    <message>
        <source>left out</source>
        <translation>weggelassen</translation>
    </message>
    <message>
        <source>flat tetrahedra</source>
        <translation>flache Tetraeder</translation>
    </message>
    <message>
        <source>%1: %2 of %3 tetrahedra have nodes on their edges; only their corners were taken</source>
        <translation>%1: %2 von %3 Tetraedern haben Knoten auf ihren Kanten; nur ihre Ecken wurden genommen</translation>
    </message>
    <message>
        <source>%1: %2 of %3 tetrahedra have a negative volume in the order of their points; the written file keeps no orientation</source>
        <translation>%1: %2 von %3 Tetraedern haben ein negatives Volumen in der Reihenfolge ihrer Punkte; die geschriebene Datei hält keine Orientierung fest</translation>
    </message>
    <message>
        <source>%1: %2 of %3 tetrahedra are flat in six decimals; are the coordinates in millimetres?</source>
        <translation>%1: %2 von %3 Tetraedern sind auf sechs Nachkommastellen flach; sind die Koordinaten in Millimetern?</translation>
    </message>
    <message>
        <source>there is not enough memory for it</source>
        <translation>dafür reicht der Speicher nicht</translation>
    </message>
    <message>
        <source>holds no tetrahedra</source>
        <translation>enthält keine Tetraeder</translation>
    </message>
    <message>
        <source>version 2.2 (&quot;gmsh -save -format msh22 -o OUT.msh IN.msh&quot; writes that)</source>
        <translation>Version 2.2 („gmsh -save -format msh22 -o OUT.msh IN.msh“ schreibt sie)</translation>
    </message>
    <message>
        <source>three numbers, &quot;2.2 0 8&quot;</source>
        <translation>drei Zahlen, „2.2 0 8“</translation>
    </message>
    <message>
        <source>ASCII, &quot;2.2 0 8&quot; (&quot;gmsh -save -format msh22 -o OUT.msh IN.msh&quot; writes that)</source>
        <translation>ASCII, „2.2 0 8“ („gmsh -save -format msh22 -o OUT.msh IN.msh“ schreibt das)</translation>
    </message>
    <message>
        <source>the beginning of a section, such as &quot;$Nodes&quot;</source>
        <translation>der Anfang eines Abschnitts, wie „$Nodes“</translation>
    </message>
    <message>
        <source>how many there are</source>
        <translation>wie viele es sind</translation>
    </message>
    <message>
        <source>one section &quot;$Nodes&quot;</source>
        <translation>ein einziger Abschnitt „$Nodes“</translation>
    </message>
    <message>
        <source>two nodes have the number %1</source>
        <translation>zwei Knoten haben die Nummer %1</translation>
    </message>
    <message>
        <source>node %1 of %2, its number and three coordinates</source>
        <translation>Knoten %1 von %2, seine Nummer und drei Koordinaten</translation>
    </message>
    <message>
        <source>&quot;$Nodes&quot; before &quot;$Elements&quot;</source>
        <translation>„$Nodes“ vor „$Elements“</translation>
    </message>
    <message>
        <source>one section &quot;$Elements&quot;</source>
        <translation>ein einziger Abschnitt „$Elements“</translation>
    </message>
    <message>
        <source>line %1: elements of the type %2 are not known</source>
        <translation>Zeile %1: Elemente des Typs %2 sind nicht bekannt</translation>
    </message>
    <message>
        <source>element %1 of %2, its number, type, number of tags, tags and nodes</source>
        <translation>Element %1 von %2, seine Nummer, sein Typ, die Anzahl der Kennungen, die Kennungen und die Knoten</translation>
    </message>
    <message>
        <source>line %1: %2 are not read, only tetrahedra</source>
        <translation>Zeile %1: %2 werden nicht gelesen, nur Tetraeder</translation>
    </message>
    <message>
        <source>line %1: a tetrahedron refers to node %2, which is not there</source>
        <translation>Zeile %1: ein Tetraeder bezieht sich auf Knoten %2, den es nicht gibt</translation>
    </message>
    <message>
        <source>line %1: a tetrahedron has node %2 twice</source>
        <translation>Zeile %1: ein Tetraeder hat Knoten %2 zweimal</translation>
    </message>
    <message>
        <source>expected the suffix .vmesh</source>
        <translation>erwartet wurde die Endung .vmesh</translation>
    </message>
    <message>
        <source>there is not enough memory for its face rows</source>
        <translation>der Speicher reicht nicht für seine Flächenzeilen</translation>
    </message>
    <message>
        <source>what was written is not what was to be written; is the disk full?</source>
        <translation>geschrieben wurde nicht, was geschrieben werden sollte; ist der Datenträger voll?</translation>
    </message>
    <message>
        <source>POINTS, CELLS and CELL_TYPES</source>
        <translation>POINTS, CELLS und CELL_TYPES</translation>
    </message>
    <message>
        <source>&quot;%1&quot; and a number</source>
        <translation>„%1“ und eine Zahl</translation>
    </message>
    <message>
        <source>ASCII (write the file as text)</source>
        <translation>ASCII (die Datei als Text schreiben)</translation>
    </message>
    <message>
        <source>POINTS, CELLS, CELL_TYPES, FIELD or METADATA</source>
        <translation>POINTS, CELLS, CELL_TYPES, FIELD oder METADATA</translation>
    </message>
    <message>
        <source>one section POINTS</source>
        <translation>ein einziger Abschnitt POINTS</translation>
    </message>
    <message>
        <source>a coordinate of point %1 of %2</source>
        <translation>eine Koordinate von Punkt %1 von %2</translation>
    </message>
    <message>
        <source>POINTS before CELLS</source>
        <translation>POINTS vor CELLS</translation>
    </message>
    <message>
        <source>one section CELLS</source>
        <translation>ein einziger Abschnitt CELLS</translation>
    </message>
    <message>
        <source>the index of one of %1 points</source>
        <translation>der Index eines von %1 Punkten</translation>
    </message>
    <message>
        <source>the number of points of cell %1 of %2, at most %3</source>
        <translation>die Anzahl der Punkte von Zelle %1 von %2, höchstens %3</translation>
    </message>
    <message>
        <source>line %1: CELLS announces %2 numbers and has %3</source>
        <translation>Zeile %1: CELLS kündigt %2 Zahlen an und hat %3</translation>
    </message>
    <message>
        <source>offset %1 of %2, from %3 to %4</source>
        <translation>Versatz %1 von %2, von %3 bis %4</translation>
    </message>
    <message>
        <source>%1 as last offset</source>
        <translation>%1 als letzter Versatz</translation>
    </message>
    <message>
        <source>CELLS before CELL_TYPES</source>
        <translation>CELLS vor CELL_TYPES</translation>
    </message>
    <message>
        <source>one section CELL_TYPES</source>
        <translation>ein einziger Abschnitt CELL_TYPES</translation>
    </message>
    <message>
        <source>the number of cells, %1</source>
        <translation>die Anzahl der Zellen, %1</translation>
    </message>
    <message>
        <source>the type of cell %1 of %2</source>
        <translation>der Typ von Zelle %1 von %2</translation>
    </message>
    <message>
        <source>line %1: cells of the type %2 are not known</source>
        <translation>Zeile %1: Zellen des Typs %2 sind nicht bekannt</translation>
    </message>
    <message>
        <source>line %1: the type of cell %2, %3, does not fit its %4 points</source>
        <translation>Zeile %1: der Typ von Zelle %2, %3, passt nicht zu ihren %4 Punkten</translation>
    </message>
    <message>
        <source>cell %1, counted from 0: a tetrahedron has point %2 twice</source>
        <translation>Zelle %1, gezählt ab 0: ein Tetraeder hat Punkt %2 zweimal</translation>
    </message>
    <message>
        <source>a value of a field</source>
        <translation>ein Wert eines Feldes</translation>
    </message>
    <message>
        <source>the file ends in line %1: expected %2</source>
        <translation>die Datei endet in Zeile %1: erwartet: %2</translation>
    </message>
    <message>
        <source>Print the names as JSON, schema surfaceio.unpack/1</source>
        <translation>Die Namen als JSON ausgeben, Schema surfaceio.unpack/1</translation>
    </message>
    <message>
        <source>Name of the scanner</source>
        <translation>Name des Scanners</translation>
    </message>
    <message>
        <source>Its serial number</source>
        <translation>Seine Seriennummer</translation>
    </message>
    <message>
        <source>Version of the program that made the scan</source>
        <translation>Version des Programms, das den Scan gemacht hat</translation>
    </message>
    <message>
        <source>the name is not UTF-8, and nothing can be opened by it</source>
        <translation>der Name ist kein UTF-8, und unter ihm kann nichts geöffnet werden</translation>
    </message>
    <message>
        <source>check who may read it</source>
        <translation>prüfen, wer es lesen darf</translation>
    </message>
    <message>
        <source>give it a name in UTF-8</source>
        <translation>einen Namen in UTF-8 geben</translation>
    </message>
    <message>
        <source>vertices lose their colours: a file of the kind &quot;%1&quot; holds none</source>
        <translation>die Eckpunkte verlieren ihre Farben: eine Datei der Art „%1“ enthält keine</translation>
    </message>
    <message>
        <source>facets lose their tags</source>
        <translation>die Facetten verlieren ihre Kennungen</translation>
    </message>
    <message>
        <source>expected one of %1, found &quot;%2&quot;</source>
        <translation>erwartet wurde eines von %1, gefunden „%2“</translation>
    </message>
    <message>
        <source>expected {name}, {tag} or {subTag}, found %1</source>
        <translation>erwartet wurde {name}, {tag} oder {subTag}, gefunden %1</translation>
    </message>
    <message>
        <source>is %1; tags are in binary STL</source>
        <translation>ist %1; Kennungen stehen in binärem STL</translation>
    </message>
    <message>
        <source>the folder cannot be read: </source>
        <translation>der Ordner kann nicht gelesen werden: </translation>
    </message>
    <message>
        <source>no file fits the pattern</source>
        <translation>keine Datei passt zum Muster</translation>
    </message>
    <message>
        <source>&quot;%1&quot; stands where a number is expected, and is read as 0</source>
        <translation>„%1“ steht, wo eine Zahl erwartet wird, und wird als 0 gelesen</translation>
    </message>
    <message>
        <source>%1: Value %2 not in range %3 to %4</source>
        <translation>%1: der Wert %2 liegt nicht im Bereich %3 bis %4</translation>
    </message>
    <message>
        <source>expected a whole number from 0 to %1</source>
        <translation>erwartet wurde eine ganze Zahl von 0 bis %1</translation>
    </message>
    <message>
        <source>The language of messages and help: German, Polish, or else English. Numbers are the same in every language, and with --json the results and their sentences are in English.</source>
        <translation>Die Sprache der Meldungen und der Hilfe: Deutsch, Polnisch oder sonst Englisch. Zahlen sind in jeder Sprache gleich, und mit --json sind die Ergebnisse und die Sätze darin auf Englisch.</translation>
    </message>
    <message>
        <source>Gmsh, for vmesh from</source>
        <translation>Gmsh, für vmesh from</translation>
    </message>
    <message>
        <source>VTK, for vmesh from</source>
        <translation>VTK, für vmesh from</translation>
    </message>
    <message>
        <source>has no tags that could colour it</source>
        <translation>hat keine Kennungen, die Farben geben könnten</translation>
    </message>
    <message>
        <source>png: OUT is such a picture, whatever its suffix</source>
        <translation>png: OUT ist ein solches Bild, was auch seine Endung ist</translation>
    </message>
    <message>
        <source>surfaceio vmesh from FILE -o OUT.vmesh</source>
        <translation>surfaceio vmesh from FILE -o OUT.vmesh</translation>
    </message>
    <message>
        <source>download the file again: a server sent a page in its place, to sign in or to say why not</source>
        <translation>die Datei noch einmal herunterladen: ein Server hat statt ihrer eine Seite geschickt, zum Anmelden oder mit einer Absage</translation>
    </message>
    <message>
        <source>unpack it, and take the mesh out of it</source>
        <translation>auspacken und das Netz herausnehmen</translation>
    </message>
    <message>
        <source>write the words in small letters: readers look for &quot;solid&quot; and &quot;vertex&quot;</source>
        <translation>die Wörter klein schreiben: Leser suchen „solid“ und „vertex“</translation>
    </message>
    <message>
        <source>end each line of the header with a line feed; what is behind &quot;end_header&quot; has to stay as it is</source>
        <translation>jede Zeile des Kopfs mit einem Zeilenvorschub beenden; was hinter „end_header“ steht, muss bleiben, wie es ist</translation>
    </message>
    <message>
        <source>put spaces in place of the tabs in the header</source>
        <translation>die Tabulatoren im Kopf durch Leerzeichen ersetzen</translation>
    </message>
    <message>
        <source>save it as UTF-8 or ASCII; text editors can, and so can iconv -f UTF-16 -t UTF-8</source>
        <translation>als UTF-8 oder ASCII speichern; Texteditoren können das, und auch iconv -f UTF-16 -t UTF-8</translation>
    </message>
    <message>
        <source>end each line with a line feed; text editors can, and so can tr &apos;\r&apos; &apos;\n&apos;</source>
        <translation>jede Zeile mit einem Zeilenvorschub beenden; Texteditoren können das, und auch tr &apos;\r&apos; &apos;\n&apos;</translation>
    </message>
    <message>
        <source>put spaces in place of the tabs</source>
        <translation>die Tabulatoren durch Leerzeichen ersetzen</translation>
    </message>
    <message>
        <source>a tab between numbers</source>
        <translation>ein Tabulator zwischen Zahlen</translation>
    </message>
    <message>
        <source>the content is that of a web page</source>
        <translation>der Inhalt ist der einer Webseite</translation>
    </message>
    <message>
        <source>the content is that of an archive, ZIP or gzip</source>
        <translation>der Inhalt ist der eines Archivs, ZIP oder gzip</translation>
    </message>
    <message>
        <source>a file of a mesher; &quot;surfaceio vmesh from&quot; makes a volume mesh of it</source>
        <translation>eine Datei eines Netzgenerators; „surfaceio vmesh from“ macht ein Volumennetz daraus</translation>
    </message>
    <message>
        <source>the lines of the header end with carriage returns; expected line feeds</source>
        <translation>die Zeilen des Kopfs enden mit Wagenrückläufen; erwartet sind Zeilenvorschübe</translation>
    </message>
    <message>
        <source>expected spaces between the words of the header, found a tab: &quot;%1&quot;</source>
        <translation>zwischen den Wörtern des Kopfs sind Leerzeichen erwartet, gefunden wurde ein Tabulator: „%1“</translation>
    </message>
    <message>
        <source>begins with &quot;%1&quot;; text is known by &quot;solid&quot; in small letters, so that this counts as binary data</source>
        <translation>beginnt mit „%1“; Text wird am klein geschriebenen „solid“ erkannt, daher gilt dies als Binärdaten</translation>
    </message>
    <message>
        <source>the material library &quot;%1&quot; does not exist; all of the line is taken as one name</source>
        <translation>die Materialbibliothek „%1“ gibt es nicht; die ganze Zeile gilt als ein Name</translation>
    </message>
    <message>
        <source>a tab between numbers, which only spaces separate</source>
        <translation>ein Tabulator zwischen Zahlen, die nur Leerzeichen trennen</translation>
    </message>
    <message>
        <source>is text in UTF-16; only UTF-8, Latin-1 and ASCII are read</source>
        <translation>ist Text in UTF-16; gelesen werden nur UTF-8, Latin-1 und ASCII</translation>
    </message>
    <message>
        <source>a carriage return inside the line; expected line feeds at the ends of lines</source>
        <translation>ein Wagenrücklauf innerhalb der Zeile; erwartet sind Zeilenvorschübe an den Zeilenenden</translation>
    </message>
    <message>
        <source>the image &quot;%1&quot; does not exist; the options beside &quot;%2&quot; are taken as part of the name</source>
        <translation>das Bild „%1“ gibt es nicht; die Optionen neben „%2“ gelten als Teil des Namens</translation>
    </message>
</context>
</TS>
