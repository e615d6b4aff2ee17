<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl" sourcelanguage="en">
<context>
    <name>Text</name>
    <message>
        <source>warning: </source>
        <translation>ostrzeżenie: </translation>
    </message>
    <message>
        <source>yes</source>
        <translation>tak</translation>
    </message>
    <message>
        <source>no</source>
        <translation>nie</translation>
    </message>
    <message>
        <source>A subcommand is required</source>
        <translation>Brakuje polecenia</translation>
    </message>
    <message>
        <source>%1 is required</source>
        <translation>Brakuje: %1</translation>
    </message>
    <message>
        <source>The following argument was not expected: %1</source>
        <translation>Nie oczekiwano tego argumentu: %1</translation>
    </message>
    <message>
        <source>The following arguments were not expected: %1</source>
        <translation>Nie oczekiwano tych argumentów: %1</translation>
    </message>
    <message>
        <source>%1: %2 required %3 missing</source>
        <translation>%1: brakuje wartości (%2 razy %3)</translation>
    </message>
    <message>
        <source>%1: %2 not in {%3}</source>
        <translation>%1: %2 nie należy do {%3}</translation>
    </message>
    <message>
        <source>Could not convert: %1 = %2</source>
        <translation>Nie można przekształcić: %1 = %2</translation>
    </message>
    <message>
        <source>%1: Should be true/false or a number</source>
        <translation>%1: oczekiwano true, false lub liczby</translation>
    </message>
    <message>
        <source>%1 requires %2</source>
        <translation>%1 wymaga %2</translation>
    </message>
    <message>
        <source>%1 excludes %2</source>
        <translation>%1 wyklucza %2</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>nie można go odczytać</translation>
    </message>
    <message>
        <source>file</source>
        <translation>plik</translation>
    </message>
    <message>
        <source>material</source>
        <translation>materiał</translation>
    </message>
    <message>
        <source>vertices</source>
        <translation>wierzchołki</translation>
    </message>
    <message>
        <source>triangles</source>
        <translation>trójkąty</translation>
    </message>
    <message>
        <source>skipped because</source>
        <translation>pominięty, bo</translation>
    </message>
    <message>
        <source>skipped in memory because</source>
        <translation>w pamięci pominięty, bo</translation>
    </message>
    <message>
        <source>document</source>
        <translation>dokument</translation>
    </message>
    <message>
        <source>materials</source>
        <translation>materiały</translation>
    </message>
    <message>
        <source>shapes that load</source>
        <translation>kształty wczytywane</translation>
    </message>
    <message>
        <source>shapes that are skipped</source>
        <translation>kształty pomijane</translation>
    </message>
    <message>
        <source>shapes</source>
        <translation>kształty</translation>
    </message>
    <message>
        <source>no mesh could be read from it</source>
        <translation>nie udało się odczytać z niego siatki</translation>
    </message>
    <message>
        <source>it does not stand under root/shapes</source>
        <translation>nie znajduje się pod root/shapes</translation>
    </message>
    <message>
        <source>it has no material id</source>
        <translation>nie ma identyfikatora materiału</translation>
    </message>
    <message>
        <source>its material &quot;%1&quot; is not defined</source>
        <translation>jego materiał „%1” nie jest zdefiniowany</translation>
    </message>
    <message>
        <source>cannot be opened: </source>
        <translation>nie można otworzyć: </translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>wiersz %1: %2</translation>
    </message>
    <message>
        <source>it is beyond the limits of such documents</source>
        <translation>wykracza poza granice takich dokumentów</translation>
    </message>
    <message>
        <source>expected an associated-shapes document: </source>
        <translation>oczekiwano dokumentu powiązanych kształtów: </translation>
    </message>
    <message>
        <source>expected one of the suffixes .stl, .ply, .obj</source>
        <translation>oczekiwano jednego z rozszerzeń .stl, .ply, .obj</translation>
    </message>
    <message>
        <source>no mesh could be read from its file</source>
        <translation>z jego pliku nie udało się odczytać siatki</translation>
    </message>
    <message>
        <source>%1: shape %2, &quot;%3&quot;, is left out: %4</source>
        <translation>%1: kształt %2, „%3”, zostaje pominięty: %4</translation>
    </message>
    <message>
        <source>holds no shape that could be unpacked</source>
        <translation>nie zawiera kształtu, który można by rozpakować</translation>
    </message>
    <message>
        <source>the folder cannot be made</source>
        <translation>nie można utworzyć katalogu</translation>
    </message>
    <message>
        <source>export the file again, from the program that wrote it</source>
        <translation>wyeksportuj plik ponownie z programu, który go zapisał</translation>
    </message>
    <message>
        <source>the content is that of %1, the suffix is not</source>
        <translation>zawartość jest w formacie %1, a rozszerzenie nie</translation>
    </message>
    <message numerus="yes">
        <source>%1 has %n point(s)</source>
        <translation>
            <numerusform>%1 ma %n punkt</numerusform>
            <numerusform>%1 ma %n punkty</numerusform>
            <numerusform>%1 ma %n punktów</numerusform>
        </translation>
    </message>
    <message>
        <source>points count from 0</source>
        <translation>punkty liczy się od 0</translation>
    </message>
    <message>
        <source>line %1: a condition refers to point %2; %3</source>
        <translation>wiersz %1: warunek odnosi się do punktu %2; %3</translation>
    </message>
    <message>
        <source>take the volume mesh that the conditions were made for</source>
        <translation>użyj siatki objętościowej, dla której utworzono warunki</translation>
    </message>
    <message numerus="yes">
        <source>%n more reference(s) of this kind</source>
        <translation>
            <numerusform>jeszcze %n takie odwołanie</numerusform>
            <numerusform>jeszcze %n takie odwołania</numerusform>
            <numerusform>jeszcze %n takich odwołań</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 conditions are for %2 points</source>
        <translation>warunków: %1, a różnych punktów: %2</translation>
    </message>
    <message>
        <source>%1 of %2 components are NaN or infinite</source>
        <translation>składowe NaN lub nieskończone: %1 z %2</translation>
    </message>
    <message>
        <source>the points were not compared with a volume mesh</source>
        <translation>punktów nie porównano z siatką objętościową</translation>
    </message>
    <message>
        <source>the file is damaged; copy it again, or export it again</source>
        <translation>plik jest uszkodzony; skopiuj lub wyeksportuj go ponownie</translation>
    </message>
    <message>
        <source>make triangles of all faces on export, or in a mesh editor</source>
        <translation>przy eksporcie lub w edytorze siatek zamień wszystkie ściany na trójkąty</translation>
    </message>
    <message>
        <source>check the spelling of the path</source>
        <translation>sprawdź pisownię ścieżki</translation>
    </message>
    <message>
        <source>name a regular file; save what a pipe carries to a file first</source>
        <translation>podaj zwykły plik; to, co przychodzi potokiem, najpierw zapisz w pliku</translation>
    </message>
    <message>
        <source>&quot;surfaceio formats&quot; lists what can be read; export as one of these</source>
        <translation>„surfaceio formats” wypisuje, co można odczytać; wyeksportuj do jednego z tych formatów</translation>
    </message>
    <message>
        <source>rename the file: readers choose the format by the suffix</source>
        <translation>zmień nazwę pliku: format wybiera się po rozszerzeniu</translation>
    </message>
    <message>
        <source>the file was cut off or is no STL; copy or export it again</source>
        <translation>plik został ucięty lub nie jest STL; skopiuj lub wyeksportuj go ponownie</translation>
    </message>
    <message>
        <source>bytes were lost or added: copy the file again, in binary mode; if it stays so, export it again</source>
        <translation>bajty zginęły lub przybyły: skopiuj plik ponownie w trybie binarnym; jeśli to nie pomoże, wyeksportuj go ponownie</translation>
    </message>
    <message>
        <source>overwrite the first five bytes, for example with spaces; they are not part of the mesh</source>
        <translation>nadpisz pierwsze pięć bajtów, na przykład spacjami; nie należą do siatki</translation>
    </message>
    <message>
        <source>copy or export the file again</source>
        <translation>skopiuj lub wyeksportuj plik ponownie</translation>
    </message>
    <message>
        <source>the file holds no facets; export it again</source>
        <translation>plik nie zawiera ścianek; wyeksportuj go ponownie</translation>
    </message>
    <message>
        <source>write each vertex as the word, a space and three numbers with points, with spaces between; no tabs</source>
        <translation>zapisz każdy wierzchołek jako słowo, spację i trzy liczby z kropką dziesiętną, rozdzielone spacjami; bez tabulatorów</translation>
    </message>
    <message>
        <source>the file was cut off, or facets lack a corner; export it again</source>
        <translation>plik został ucięty lub ściankom brakuje narożnika; wyeksportuj go ponownie</translation>
    </message>
    <message>
        <source>every facet is a point or a line; check units and decimals of the export</source>
        <translation>każda ścianka jest punktem lub odcinkiem; sprawdź jednostki i liczbę miejsc dziesiętnych eksportu</translation>
    </message>
    <message>
        <source>write the record again, with MeshWriter or &quot;surfaceio convert&quot;</source>
        <translation>zapisz rekord ponownie, używając MeshWriter lub „surfaceio convert”</translation>
    </message>
    <message>
        <source>the library said this while reading; see docs/formats for the format</source>
        <translation>to powiedziała biblioteka podczas czytania; zobacz docs/formats dla tego formatu</translation>
    </message>
    <message>
        <source>the file is sound and holds no facet; export it again</source>
        <translation>plik jest poprawny, ale nie zawiera ścianek; wyeksportuj go ponownie</translation>
    </message>
    <message>
        <source>scale by 1000: coordinates are taken as millimetres</source>
        <translation>przeskaluj przez 1000: współrzędne uważa się za milimetry</translation>
    </message>
    <message>
        <source>scale by 0.001: coordinates are taken as millimetres</source>
        <translation>przeskaluj przez 0.001: współrzędne uważa się za milimetry</translation>
    </message>
    <message>
        <source>remove the facets at these vertices in a mesh editor</source>
        <translation>usuń ścianki przy tych wierzchołkach w edytorze siatek</translation>
    </message>
    <message>
        <source>these vertices have no area around them; remove slivers in a mesh editor</source>
        <translation>wokół tych wierzchołków nie ma powierzchni; usuń zdegenerowane ścianki w edytorze siatek</translation>
    </message>
    <message>
        <source>split or remove the surplus facets before measuring or printing</source>
        <translation>oddziel lub usuń nadmiarowe ścianki przed pomiarem lub drukiem</translation>
    </message>
    <message>
        <source>make the winding of neighbouring facets agree in a mesh editor</source>
        <translation>uzgodnij orientację sąsiednich ścianek w edytorze siatek</translation>
    </message>
    <message>
        <source>remove the copies; they count twice in areas and normals</source>
        <translation>usuń kopie; liczą się podwójnie w polach i normalnych</translation>
    </message>
    <message>
        <source>nothing for a scan, which is a sheet; close the surface before printing</source>
        <translation>w przypadku skanu, który jest otwartą powierzchnią, nie trzeba nic robić; przed drukiem zamknij powierzchnię</translation>
    </message>
    <message>
        <source>read the file without tags, or clear the words: surfaceio tags relabel FILE &apos;*=0/0&apos; -o OUT</source>
        <translation>czytaj plik bez znaczników albo wyczyść te słowa: surfaceio tags relabel FILE &apos;*=0/0&apos; -o OUT</translation>
    </message>
    <message>
        <source>nothing: readers drop facets with two equal corners</source>
        <translation>nie trzeba nic robić: przy czytaniu ścianki z dwoma jednakowymi narożnikami są pomijane</translation>
    </message>
    <message>
        <source>nothing for viewing; remesh before a simulation</source>
        <translation>do oglądania nie trzeba nic robić; przed symulacją utwórz siatkę od nowa</translation>
    </message>
    <message>
        <source>export as binary PLY; mesh editors do when they save the file</source>
        <translation>wyeksportuj jako binarny PLY; edytory siatek robią to przy zapisie</translation>
    </message>
    <message>
        <source>make a surface of the points first, or read them as a point cloud</source>
        <translation>najpierw utwórz z punktów powierzchnię albo czytaj je jako chmurę punktów</translation>
    </message>
    <message>
        <source>save without colours of faces, or with colours of vertices</source>
        <translation>zapisz bez kolorów ścian albo z kolorami wierzchołków</translation>
    </message>
    <message>
        <source>save with the elements vertex and face first; others cannot be skipped</source>
        <translation>zapisz z elementami vertex i face na początku; innych nie da się pominąć</translation>
    </message>
    <message>
        <source>save with properties of other types, and with no list but that of corners</source>
        <translation>zapisz z właściwościami innych typów i bez list poza listą narożników</translation>
    </message>
    <message>
        <source>export with indices from 1 on; mesh editors do when they save the file</source>
        <translation>wyeksportuj z indeksami od 1; edytory siatek robią to przy zapisie</translation>
    </message>
    <message>
        <source>put all materials into one MTL file, and name that one</source>
        <translation>umieść wszystkie materiały w jednym pliku MTL i podaj ten plik</translation>
    </message>
    <message>
        <source>give every corner a texture coordinate, or none</source>
        <translation>nadaj współrzędną tekstury każdemu narożnikowi albo żadnemu</translation>
    </message>
    <message>
        <source>scale the images down</source>
        <translation>zmniejsz obrazy</translation>
    </message>
    <message>
        <source>the file holds no mesh; export it again</source>
        <translation>plik nie zawiera siatki; wyeksportuj go ponownie</translation>
    </message>
    <message>
        <source>make triangles of all faces: only the first three corners of these are read</source>
        <translation>zamień wszystkie ściany na trójkąty: z tych czytane są tylko pierwsze trzy narożniki</translation>
    </message>
    <message>
        <source>write numbers with a point; such a word is read as 0</source>
        <translation>zapisuj liczby z kropką dziesiętną; takie słowo jest czytane jako 0</translation>
    </message>
    <message>
        <source>replace tabs by spaces; such a line is not read</source>
        <translation>zastąp tabulatory spacjami; taki wiersz nie jest czytany</translation>
    </message>
    <message>
        <source>write each vertex and each face in one line</source>
        <translation>zapisz każdy wierzchołek i każdą ścianę w jednym wierszu</translation>
    </message>
    <message>
        <source>with as many of them as positions these numbers are ignored: write one more &quot;vt&quot; or &quot;vn&quot; line, or make the numbers agree</source>
        <translation>gdy jest ich tyle, ile położeń, numery te nie są brane pod uwagę: dopisz jeden wiersz „vt” lub „vn” albo uzgodnij numery</translation>
    </message>
    <message>
        <source>write one more &quot;vt&quot; line, in no face: then each material gets vertices of its own</source>
        <translation>dopisz jeden wiersz „vt”, nieużywany w żadnej ścianie: wtedy każdy materiał dostanie własne wierzchołki</translation>
    </message>
    <message>
        <source>colours behind positions are not read; for colours export as PLY</source>
        <translation>kolory za położeniami nie są czytane; dla kolorów wyeksportuj jako PLY</translation>
    </message>
    <message>
        <source>put the MTL file beside the OBJ file, or correct its name there</source>
        <translation>umieść plik MTL obok pliku OBJ albo popraw tam jego nazwę</translation>
    </message>
    <message>
        <source>put the image beside the scan, or correct its name</source>
        <translation>umieść obraz obok skanu albo popraw jego nazwę</translation>
    </message>
    <message>
        <source>name the file relative to the scan; on another computer this path leads nowhere</source>
        <translation>podaj plik względem skanu; na innym komputerze ta ścieżka prowadzi donikąd</translation>
    </message>
    <message>
        <source>write a slash; a backslash is part of the name for readers on other systems</source>
        <translation>użyj zwykłego ukośnika; odwrotny jest w innych systemach częścią nazwy</translation>
    </message>
    <message>
        <source>take the options out; scale the image or the coordinates instead</source>
        <translation>usuń opcje; zamiast tego przeskaluj obraz lub współrzędne</translation>
    </message>
    <message>
        <source>convert the image to PNG or JPEG</source>
        <translation>przekształć obraz do PNG lub JPEG</translation>
    </message>
    <message>
        <source>scale the image down; applications refuse it with the limit of Qt</source>
        <translation>zmniejsz obraz; aplikacje odrzucają go przy granicy ustalonej w Qt</translation>
    </message>
    <message>
        <source>correct this line: materials behind it are as if undefined</source>
        <translation>popraw ten wiersz: materiały za nim są jak niezdefiniowane</translation>
    </message>
    <message>
        <source>define it: its faces are drawn with another texture, or without</source>
        <translation>zdefiniuj go: jego ściany są rysowane z inną teksturą lub bez niej</translation>
    </message>
    <message>
        <source>textures are not repeated: bring the coordinates into 0 to 1</source>
        <translation>tekstury nie są powtarzane: sprowadź współrzędne do zakresu od 0 do 1</translation>
    </message>
    <message>
        <source>keep the image of the colours last, or alone</source>
        <translation>zostaw obraz kolorów jako ostatni albo jedyny</translation>
    </message>
    <message>
        <source>nothing; its images are not read</source>
        <translation>nie trzeba nic robić; jego obrazy nie są czytane</translation>
    </message>
    <message>
        <source>name the image in the header: comment TextureFile NAME</source>
        <translation>podaj obraz w nagłówku: comment TextureFile NAME</translation>
    </message>
    <message>
        <source>indices count from 0; -1 stands for no tetrahedron, never for a point</source>
        <translation>indeksy liczy się od 0; -1 oznacza brak czworościanu, nigdy punkt</translation>
    </message>
    <message>
        <source>write a row for each face of each tetrahedron</source>
        <translation>zapisz wiersz dla każdej ściany każdego czworościanu</translation>
    </message>
    <message>
        <source>mesh again, or take the flat ones out: a solver divides by their volume</source>
        <translation>utwórz siatkę od nowa albo usuń płaskie: program obliczeniowy dzieli przez ich objętość</translation>
    </message>
    <message>
        <source>the format keeps no orientation; swap two points of each after reading</source>
        <translation>format nie przechowuje orientacji; po odczycie zamień w każdym dwa punkty</translation>
    </message>
    <message>
        <source>four points were taken from the first rows of that tetrahedron</source>
        <translation>cztery punkty wzięto z pierwszych wierszy tego czworościanu</translation>
    </message>
    <message>
        <source>list each face of the outer surface once among the bound faces</source>
        <translation>wymień każdą ścianę zewnętrznej powierzchni raz wśród ścian brzegowych</translation>
    </message>
    <message>
        <source>the body has a gap, or parts of it touch in an edge only</source>
        <translation>bryła ma lukę albo jej części stykają się tylko krawędzią</translation>
    </message>
    <message>
        <source>give each point one condition: solvers differ in which of several they take</source>
        <translation>nadaj każdemu punktowi jeden warunek: programy obliczeniowe różnie wybierają z kilku</translation>
    </message>
    <message>
        <source>name the volume mesh before the conditions: surfaceio check MESH.vmesh CONDITIONS</source>
        <translation>podaj siatkę objętościową przed warunkami: surfaceio check MESH.vmesh CONDITIONS</translation>
    </message>
    <message>
        <source>note</source>
        <translation>uwaga</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>ostrzeżenie</translation>
    </message>
    <message>
        <source>error</source>
        <translation>błąd</translation>
    </message>
    <message>
        <source>name &quot;%1&quot;, if that is meant, and put it beside the scan</source>
        <translation>podaj „%1”, jeśli o to chodzi, i umieść obok skanu</translation>
    </message>
    <message>
        <source> is named by a path from the root of a disk</source>
        <translation> ma w nazwie ścieżkę od katalogu głównego dysku</translation>
    </message>
    <message>
        <source> is named with a backslash</source>
        <translation> ma w nazwie odwrotny ukośnik</translation>
    </message>
    <message>
        <source> does not exist</source>
        <translation> nie istnieje</translation>
    </message>
    <message>
        <source>the image</source>
        <translation>obraz</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no image that can be read</source>
        <translation>„%1” nie jest obrazem, który da się odczytać</translation>
    </message>
    <message>
        <source>the image &quot;%1&quot; is named by a path from the root of a disk</source>
        <translation>obraz „%1” ma w nazwie ścieżkę od katalogu głównego dysku</translation>
    </message>
    <message>
        <source>%1 mm across; are these metres?</source>
        <translation>rozmiar %1 mm; czy to metry?</translation>
    </message>
    <message>
        <source>%1 mm across; are these micrometres?</source>
        <translation>rozmiar %1 mm; czy to mikrometry?</translation>
    </message>
    <message numerus="yes">
        <source>%n vert(ex|ices) with a NaN or an infinity</source>
        <translation>
            <numerusform>%n wierzchołek o współrzędnych nieskończonych lub NaN</numerusform>
            <numerusform>%n wierzchołki o współrzędnych nieskończonych lub NaN</numerusform>
            <numerusform>%n wierzchołków o współrzędnych nieskończonych lub NaN</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n vert(ex|ices) without a normal</source>
        <translation>
            <numerusform>%n wierzchołek bez normalnej</numerusform>
            <numerusform>%n wierzchołki bez normalnej</numerusform>
            <numerusform>%n wierzchołków bez normalnej</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n facet(s) with two equal corners</source>
        <translation>
            <numerusform>%n ścianka z dwoma jednakowymi narożnikami</numerusform>
            <numerusform>%n ścianki z dwoma jednakowymi narożnikami</numerusform>
            <numerusform>%n ścianek z dwoma jednakowymi narożnikami</numerusform>
        </translation>
    </message>
    <message>
        <source>remove them in a mesh editor: they have no area and no normal</source>
        <translation>usuń je w edytorze siatek: nie mają pola ani normalnej</translation>
    </message>
    <message numerus="yes">
        <source>%n edge(s) with more than two facets</source>
        <translation>
            <numerusform>%n krawędź z więcej niż dwiema ściankami</numerusform>
            <numerusform>%n krawędzie z więcej niż dwiema ściankami</numerusform>
            <numerusform>%n krawędzi z więcej niż dwiema ściankami</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n edge(s) whose two facets are wound against each other</source>
        <translation>
            <numerusform>%n krawędź, której dwie ścianki mają przeciwną orientację</numerusform>
            <numerusform>%n krawędzie, których dwie ścianki mają przeciwną orientację</numerusform>
            <numerusform>%n krawędzi, których dwie ścianki mają przeciwną orientację</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n facet(s) that (is|are) there already</source>
        <translation>
            <numerusform>%n ścianka, która już jest</numerusform>
            <numerusform>%n ścianki, które już są</numerusform>
            <numerusform>%n ścianek, które już są</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n edge(s) with one facet only</source>
        <translation>
            <numerusform>%n krawędź z tylko jedną ścianką</numerusform>
            <numerusform>%n krawędzie z tylko jedną ścianką</numerusform>
            <numerusform>%n krawędzi z tylko jedną ścianką</numerusform>
        </translation>
    </message>
    <message>
        <source>no facets</source>
        <translation>brak ścianek</translation>
    </message>
    <message>
        <source>; is it &quot;%1&quot;?</source>
        <translation>; czy chodzi o „%1”?</translation>
    </message>
    <message numerus="yes">
        <source>, and %n more</source>
        <translation>
            <numerusform>, i %n więcej</numerusform>
            <numerusform>, i %n więcej</numerusform>
            <numerusform>, i %n więcej</numerusform>
        </translation>
    </message>
    <message>
        <source>line %1: %2%3</source>
        <translation>wiersz %1: %2%3</translation>
    </message>
    <message>
        <source>a face of more than 4 corners</source>
        <translation>ściana o więcej niż 4 narożnikach</translation>
    </message>
    <message>
        <source>a word where a number is expected</source>
        <translation>słowo w miejscu, gdzie oczekuje się liczby</translation>
    </message>
    <message>
        <source>a tab behind the keyword</source>
        <translation>tabulator za słowem kluczowym</translation>
    </message>
    <message>
        <source>a line that goes on in the next</source>
        <translation>wiersz, który ciągnie się w następnym</translation>
    </message>
    <message>
        <source>a vertex with a colour behind its position</source>
        <translation>wierzchołek z kolorem za położeniem</translation>
    </message>
    <message>
        <source>a face of 4 corners</source>
        <translation>ściana o 4 narożnikach</translation>
    </message>
    <message>
        <source>a face with relative (negative) indices</source>
        <translation>ściana z indeksami względnymi (ujemnymi)</translation>
    </message>
    <message>
        <source>a face of fewer than 3 corners</source>
        <translation>ściana o mniej niż 3 narożnikach</translation>
    </message>
    <message>
        <source>an index that is 0, missing or no number</source>
        <translation>indeks, który jest zerem, nie istnieje lub nie jest liczbą</translation>
    </message>
    <message>
        <source>too few numbers</source>
        <translation>za mało liczb</translation>
    </message>
    <message>
        <source>a corner whose normal has another number than its position</source>
        <translation>narożnik, którego normalna ma inny numer niż położenie</translation>
    </message>
    <message>
        <source>a corner whose texture coordinate has another number than its position</source>
        <translation>narożnik, którego współrzędna tekstury ma inny numer niż położenie</translation>
    </message>
    <message>
        <source>a face shares vertices with one of another material</source>
        <translation>ściana dzieli wierzchołki ze ścianą z innego materiału</translation>
    </message>
    <message>
        <source>%1 lies outside 0 to 1</source>
        <translation>%1 leży poza zakresem od 0 do 1</translation>
    </message>
    <message>
        <source>%1, line %2: </source>
        <translation>%1, wiersz %2: </translation>
    </message>
    <message>
        <source>the options &quot;%1&quot; are taken as part of the name of &quot;%2&quot;</source>
        <translation>opcje „%1” są odczytywane jako część nazwy „%2”</translation>
    </message>
    <message numerus="yes">
        <source>the material &quot;%1&quot; has %n image(s); the last one, &quot;%2&quot;, becomes its texture</source>
        <translation>
            <numerusform>materiał „%1” ma %n obraz; ostatni, „%2”, staje się jego teksturą</numerusform>
            <numerusform>materiał „%1” ma %n obrazy; ostatni, „%2”, staje się jego teksturą</numerusform>
            <numerusform>materiał „%1” ma %n obrazów; ostatni, „%2”, staje się jego teksturą</numerusform>
        </translation>
    </message>
    <message>
        <source>no face has the material &quot;%1&quot;</source>
        <translation>żadna ściana nie ma materiału „%1”</translation>
    </message>
    <message>
        <source>the material library</source>
        <translation>biblioteka materiałów</translation>
    </message>
    <message>
        <source>line %1: </source>
        <translation>wiersz %1: </translation>
    </message>
    <message>
        <source>the library is not read from here on</source>
        <translation>od tego miejsca biblioteka nie jest czytana</translation>
    </message>
    <message numerus="yes">
        <source>%n face(s) (has|have) the material &quot;%1&quot;, which no library defines</source>
        <translation>
            <numerusform>%n ściana ma materiał „%1”, którego nie definiuje żadna biblioteka</numerusform>
            <numerusform>%n ściany mają materiał „%1”, którego nie definiuje żadna biblioteka</numerusform>
            <numerusform>%n ścian ma materiał „%1”, którego nie definiuje żadna biblioteka</numerusform>
        </translation>
    </message>
    <message>
        <source>cannot be opened</source>
        <translation>nie można otworzyć</translation>
    </message>
    <message numerus="yes">
        <source>%n texture coordinate(s) (lies|lie) outside 0 to 1</source>
        <translation>
            <numerusform>%n współrzędna tekstury leży poza zakresem od 0 do 1</numerusform>
            <numerusform>%n współrzędne tekstury leżą poza zakresem od 0 do 1</numerusform>
            <numerusform>%n współrzędnych tekstury leży poza zakresem od 0 do 1</numerusform>
        </translation>
    </message>
    <message>
        <source>has texture coordinates, but its header names no image</source>
        <translation>ma współrzędne tekstury, ale nagłówek nie podaje obrazu</translation>
    </message>
    <message numerus="yes">
        <source>the attribute words look like colours of 15 bits, and the header says COLOR=; as tags they make %n surface(s)</source>
        <translation>
            <numerusform>słowa atrybutów wyglądają jak 15-bitowe kolory, a nagłówek mówi COLOR=; jako znaczniki dają %n powierzchnię</numerusform>
            <numerusform>słowa atrybutów wyglądają jak 15-bitowe kolory, a nagłówek mówi COLOR=; jako znaczniki dają %n powierzchnie</numerusform>
            <numerusform>słowa atrybutów wyglądają jak 15-bitowe kolory, a nagłówek mówi COLOR=; jako znaczniki dają %n powierzchni</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the attribute words look like colours of 15 bits; as tags they make %n surface(s)</source>
        <translation>
            <numerusform>słowa atrybutów wyglądają jak 15-bitowe kolory; jako znaczniki dają %n powierzchnię</numerusform>
            <numerusform>słowa atrybutów wyglądają jak 15-bitowe kolory; jako znaczniki dają %n powierzchnie</numerusform>
            <numerusform>słowa atrybutów wyglądają jak 15-bitowe kolory; jako znaczniki dają %n powierzchni</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n facet(s) without area</source>
        <translation>
            <numerusform>%n ścianka bez pola powierzchni</numerusform>
            <numerusform>%n ścianki bez pola powierzchni</numerusform>
            <numerusform>%n ścianek bez pola powierzchni</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2 tetrahedra have points that no face row tells</source>
        <translation>czworościany z punktami, których nie podaje żaden wiersz ściany: %1 z %2</translation>
    </message>
    <message>
        <source>%1 of %2 tetrahedra are flat</source>
        <translation>czworościany płaskie: %1 z %2</translation>
    </message>
    <message>
        <source>%1 of %2 tetrahedra have a negative volume in the order in which the face rows bring their points</source>
        <translation>czworościany o ujemnej objętości przy kolejności punktów z wierszy ścian: %1 z %2</translation>
    </message>
    <message numerus="yes">
        <source>%n face row(s) (has|have) a point that (its|their) tetrahedron does not have, the first in line %1</source>
        <translation>
            <numerusform>%n wiersz ściany ma punkt, którego nie ma jej czworościan, pierwszy w wierszu %1</numerusform>
            <numerusform>%n wiersze ścian mają punkt, którego nie ma ich czworościan, pierwszy w wierszu %1</numerusform>
            <numerusform>%n wierszy ścian ma punkt, którego nie ma ich czworościan, pierwszy w wierszu %1</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 face rows have a tetrahedron on one side only, but there are %2 bound-face rows</source>
        <translation>wierszy ścian z czworościanem tylko po jednej stronie: %1, a wierszy ścian brzegowych: %2</translation>
    </message>
    <message>
        <source>%1 of %2 edges of the boundary do not join exactly two bound faces</source>
        <translation>krawędzie brzegu, które nie łączą dokładnie dwóch ścian brzegowych: %1 z %2</translation>
    </message>
    <message>
        <source>%1 of %2 points have a NaN or an infinity</source>
        <translation>punkty o współrzędnych nieskończonych lub NaN: %1 z %2</translation>
    </message>
    <message>
        <source>: there is not enough memory for it</source>
        <translation>: za mało pamięci</translation>
    </message>
    <message>
        <source>could not be read</source>
        <translation>nie udało się odczytać</translation>
    </message>
    <message>
        <source>expected one of the suffixes %1</source>
        <translation>oczekiwano jednego z rozszerzeń %1</translation>
    </message>
    <message>
        <source>holds no facets that could be converted</source>
        <translation>nie zawiera ścianek, które można by przekształcić</translation>
    </message>
    <message>
        <source>a file of the kind &quot;%1&quot; holds no scan metadata</source>
        <translation>plik rodzaju „%1” nie zawiera metadanych skanu</translation>
    </message>
    <message>
        <source>a file of the kind &quot;%1&quot; holds no alpha and no material</source>
        <translation>plik rodzaju „%1” nie zawiera kanału alfa ani materiału</translation>
    </message>
    <message>
        <source>colours lose their alpha; --alpha writes it</source>
        <translation>kolory tracą kanał alfa; --alpha go zapisuje</translation>
    </message>
    <message>
        <source>could not be written</source>
        <translation>nie udało się zapisać</translation>
    </message>
    <message>
        <source>binary STL</source>
        <translation>binarny STL</translation>
    </message>
    <message>
        <source>binary PLY</source>
        <translation>binarny PLY</translation>
    </message>
    <message>
        <source>XYZ points</source>
        <translation>punkty XYZ</translation>
    </message>
    <message>
        <source>mesh array record</source>
        <translation>rekord tablic siatki</translation>
    </message>
    <message>
        <source>%1 and %2 would both become %3</source>
        <translation>%1 i %2 stałyby się oba plikiem %3</translation>
    </message>
    <message>
        <source>%1 would become %2, which is to be converted itself</source>
        <translation>%1 stałby się plikiem %2, który sam ma być przekształcony</translation>
    </message>
    <message>
        <source>finishing</source>
        <translation>kończenie</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>pozostało %1</translation>
    </message>
    <message numerus="yes">
        <source>%1: %n byte(s) (is|are) missing at its end; what is there was read</source>
        <translation>
            <numerusform>%1: na końcu brakuje %n bajtu; odczytano to, co jest</numerusform>
            <numerusform>%1: na końcu brakuje %n bajtów; odczytano to, co jest</numerusform>
            <numerusform>%1: na końcu brakuje %n bajtów; odczytano to, co jest</numerusform>
        </translation>
    </message>
    <message>
        <source>scanner name</source>
        <translation>nazwa skanera</translation>
    </message>
    <message>
        <source>scanner serial</source>
        <translation>numer seryjny skanera</translation>
    </message>
    <message>
        <source>software version</source>
        <translation>wersja oprogramowania</translation>
    </message>
    <message>
        <source>expected a %1 of ASCII letters, found &quot;%2&quot;: in a PLY header others cut its end off</source>
        <translation>%1: oczekiwano znaków ASCII, znaleziono „%2”: inne ucinają koniec nagłówka PLY</translation>
    </message>
    <message>
        <source>Examples:</source>
        <translation>Przykłady:</translation>
    </message>
    <message>
        <source>Options of every verb</source>
        <translation>Opcje każdego polecenia</translation>
    </message>
    <message>
        <source>all went well</source>
        <translation>wszystko się udało</translation>
    </message>
    <message>
        <source>a file could not be read or written</source>
        <translation>nie udało się odczytać lub zapisać pliku</translation>
    </message>
    <message>
        <source>the command line makes no sense</source>
        <translation>wiersz poleceń nie ma sensu</translation>
    </message>
    <message>
        <source>a file is damaged, or is not what it says it is</source>
        <translation>plik jest uszkodzony lub nie jest tym, za co się podaje</translation>
    </message>
    <message>
        <source>a sound file of a kind that the library does not read</source>
        <translation>poprawny plik takiego rodzaju, którego biblioteka nie czyta</translation>
    </message>
    <message>
        <source>all went well but for warnings, and --strict was given</source>
        <translation>wszystko się udało poza ostrzeżeniami, a podano --strict</translation>
    </message>
    <message>
        <source>several files were asked for, and some of them failed</source>
        <translation>podano kilka plików, a niektóre się nie powiodły</translation>
    </message>
    <message>
        <source>interrupted with Ctrl-C</source>
        <translation>przerwano przez Ctrl-C</translation>
    </message>
    <message>
        <source>options</source>
        <translation>opcje</translation>
    </message>
    <message>
        <source>User Commands</source>
        <translation>Polecenia użytkownika</translation>
    </message>
    <message>
        <source>NAME</source>
        <translation>NAZWA</translation>
    </message>
    <message>
        <source>looks at, checks and converts surface meshes</source>
        <translation>ogląda, sprawdza i przekształca siatki powierzchni</translation>
    </message>
    <message>
        <source>SYNOPSIS</source>
        <translation>SKŁADNIA</translation>
    </message>
    <message>
        <source>verb</source>
        <translation>polecenie</translation>
    </message>
    <message>
        <source>files</source>
        <translation>pliki</translation>
    </message>
    <message>
        <source>DESCRIPTION</source>
        <translation>OPIS</translation>
    </message>
    <message>
        <source>Results go to the standard output, everything else to the standard error.</source>
        <translation>Wyniki trafiają na standardowe wyjście, cała reszta na standardowe wyjście błędów.</translation>
    </message>
    <message>
        <source>When set and not empty, messages are not coloured unless --color always is given.</source>
        <translation>Gdy jest ustawiona i niepusta, komunikaty nie są kolorowane, chyba że podano --color always.</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>OPCJE</translation>
    </message>
    <message>
        <source>Every verb takes:</source>
        <translation>Każde polecenie przyjmuje:</translation>
    </message>
    <message>
        <source>VERBS</source>
        <translation>POLECENIA</translation>
    </message>
    <message>
        <source>EXIT STATUS</source>
        <translation>KODY WYJŚCIA</translation>
    </message>
    <message>
        <source>ENVIRONMENT</source>
        <translation>ŚRODOWISKO</translation>
    </message>
    <message>
        <source>could not be written: </source>
        <translation>nie udało się zapisać: </translation>
    </message>
    <message>
        <source>expected a PLY header from &quot;ply&quot; to &quot;end_header&quot;, found none</source>
        <translation>oczekiwano nagłówka PLY od „ply” do „end_header”, nie znaleziono żadnego</translation>
    </message>
    <message>
        <source>is read as ASCII STL, which has no room for metadata</source>
        <translation>jest czytany jako ASCII STL, w którym nie ma miejsca na metadane</translation>
    </message>
    <message numerus="yes">
        <source>expected a header of 80 bytes and a facet count of 4, found %n byte(s)</source>
        <translation>
            <numerusform>oczekiwano nagłówka o 80 bajtach i liczby ścianek o 4, znaleziono %n bajt</numerusform>
            <numerusform>oczekiwano nagłówka o 80 bajtach i liczby ścianek o 4, znaleziono %n bajty</numerusform>
            <numerusform>oczekiwano nagłówka o 80 bajtach i liczby ścianek o 4, znaleziono %n bajtów</numerusform>
        </translation>
    </message>
    <message>
        <source>&quot;%1&quot; has %2 x %3 pixels, which take %4 MiB; the limit is %5 MiB, and --image-limit %4 raises it</source>
        <translation>„%1” ma %2 x %3 pikseli, które zajmują %4 MiB; granica to %5 MiB, a --image-limit %4 ją podnosi</translation>
    </message>
    <message>
        <source>Most memory that an image may take, in MiB; 128 when not said</source>
        <translation>Najwięcej pamięci, jaką może zająć obraz, w MiB; 128, jeśli nie podano</translation>
    </message>
    <message numerus="yes">
        <source>expected two counts of 4 bytes, found %n byte(s)</source>
        <translation>
            <numerusform>oczekiwano dwóch liczb po 4 bajty, znaleziono %n bajt</numerusform>
            <numerusform>oczekiwano dwóch liczb po 4 bajty, znaleziono %n bajty</numerusform>
            <numerusform>oczekiwano dwóch liczb po 4 bajty, znaleziono %n bajtów</numerusform>
        </translation>
    </message>
    <message>
        <source>in the file</source>
        <translation>w pliku</translation>
    </message>
    <message>
        <source>indices</source>
        <translation>indeksy</translation>
    </message>
    <message>
        <source>expected counts from 0 on, found %1 vertices and %2 indices</source>
        <translation>oczekiwano liczb od 0 wzwyż, znaleziono: wierzchołki %1, indeksy %2</translation>
    </message>
    <message>
        <source>%1 vertices and %2 indices take %3 bytes, the file holds %4</source>
        <translation>wierzchołki (%1) i indeksy (%2) zajmują bajtów: %3, w pliku jest: %4</translation>
    </message>
    <message>
        <source>vertices not finite</source>
        <translation>wierzchołki o współrzędnych nieskończonych lub NaN</translation>
    </message>
    <message>
        <source>bounding box (mm)</source>
        <translation>prostopadłościan otaczający (mm)</translation>
    </message>
    <message>
        <source>min</source>
        <translation>min</translation>
    </message>
    <message>
        <source>max</source>
        <translation>maks</translation>
    </message>
    <message>
        <source>size</source>
        <translation>rozmiar</translation>
    </message>
    <message>
        <source>by its suffix only</source>
        <translation>tylko po rozszerzeniu</translation>
    </message>
    <message>
        <source>expected a file, found a link to &quot;%1&quot;, which does not exist</source>
        <translation>oczekiwano pliku, znaleziono dowiązanie do nieistniejącego „%1”</translation>
    </message>
    <message>
        <source>there is no such file</source>
        <translation>nie ma takiego pliku</translation>
    </message>
    <message>
        <source>expected a file, found a folder</source>
        <translation>oczekiwano pliku, znaleziono katalog</translation>
    </message>
    <message>
        <source>expected a regular file, found a pipe, socket or device</source>
        <translation>oczekiwano zwykłego pliku, znaleziono potok, gniazdo lub urządzenie</translation>
    </message>
    <message>
        <source>size in bytes</source>
        <translation>rozmiar w bajtach</translation>
    </message>
    <message>
        <source>neither the content nor the suffix is that of a format known here</source>
        <translation>ani zawartość, ani rozszerzenie nie należą do znanego formatu</translation>
    </message>
    <message>
        <source>format</source>
        <translation>format</translation>
    </message>
    <message>
        <source>recognised</source>
        <translation>rozpoznano</translation>
    </message>
    <message>
        <source>scan metadata</source>
        <translation>metadane skanu</translation>
    </message>
    <message>
        <source>imported</source>
        <translation>zaimportowany</translation>
    </message>
    <message>
        <source>acquisition date</source>
        <translation>data akwizycji</translation>
    </message>
    <message>
        <source>by its lines, which are those of an OBJ file</source>
        <translation>po wierszach, takich jak w pliku OBJ</translation>
    </message>
    <message>
        <source>vertices (v)</source>
        <translation>wierzchołki (v)</translation>
    </message>
    <message>
        <source>texture coordinates (vt)</source>
        <translation>współrzędne tekstury (vt)</translation>
    </message>
    <message>
        <source>normals (vn)</source>
        <translation>normalne (vn)</translation>
    </message>
    <message>
        <source>faces (f)</source>
        <translation>ściany (f)</translation>
    </message>
    <message>
        <source>objects (o)</source>
        <translation>obiekty (o)</translation>
    </message>
    <message>
        <source>groups (g)</source>
        <translation>grupy (g)</translation>
    </message>
    <message>
        <source>vertices with colours, which are not read</source>
        <translation>wierzchołki z kolorami, które nie są czytane</translation>
    </message>
    <message>
        <source>corners</source>
        <translation>narożniki</translation>
    </message>
    <message>
        <source>style</source>
        <translation>zapis</translation>
    </message>
    <message>
        <source>relative</source>
        <translation>względne</translation>
    </message>
    <message>
        <source>count</source>
        <translation>liczba</translation>
    </message>
    <message>
        <source>faces</source>
        <translation>ściany</translation>
    </message>
    <message>
        <source>name</source>
        <translation>nazwa</translation>
    </message>
    <message>
        <source>keyword</source>
        <translation>słowo kluczowe</translation>
    </message>
    <message>
        <source>lines that are not read</source>
        <translation>wiersze, które nie są czytane</translation>
    </message>
    <message>
        <source>axis</source>
        <translation>oś</translation>
    </message>
    <message>
        <source>outside 0 to 1</source>
        <translation>poza zakresem od 0 do 1</translation>
    </message>
    <message>
        <source>texture coordinates</source>
        <translation>współrzędne tekstury</translation>
    </message>
    <message>
        <source>unused</source>
        <translation>nieużywany</translation>
    </message>
    <message>
        <source>texture</source>
        <translation>tekstura</translation>
    </message>
    <message>
        <source>replaced</source>
        <translation>zastąpiony</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>brak</translation>
    </message>
    <message>
        <source>no image</source>
        <translation>nie jest obrazem</translation>
    </message>
    <message>
        <source>over the limit</source>
        <translation>ponad granicą</translation>
    </message>
    <message>
        <source>found</source>
        <translation>znaleziono</translation>
    </message>
    <message>
        <source>image</source>
        <translation>obraz</translation>
    </message>
    <message>
        <source>state</source>
        <translation>stan</translation>
    </message>
    <message>
        <source>use</source>
        <translation>użycie</translation>
    </message>
    <message>
        <source>line</source>
        <translation>wiersz</translation>
    </message>
    <message>
        <source>images</source>
        <translation>obrazy</translation>
    </message>
    <message>
        <source>material %1</source>
        <translation>materiał %1</translation>
    </message>
    <message>
        <source>diffuse colour</source>
        <translation>kolor rozproszenia</translation>
    </message>
    <message>
        <source>material library %1</source>
        <translation>biblioteka materiałów %1</translation>
    </message>
    <message>
        <source>read up to line</source>
        <translation>odczytano do wiersza</translation>
    </message>
    <message>
        <source>materials that are not defined</source>
        <translation>niezdefiniowane materiały</translation>
    </message>
    <message>
        <source>as read</source>
        <translation>po odczycie</translation>
    </message>
    <message>
        <source>facets</source>
        <translation>ścianki</translation>
    </message>
    <message>
        <source>normals</source>
        <translation>normalne</translation>
    </message>
    <message>
        <source>computed</source>
        <translation>obliczone</translation>
    </message>
    <message>
        <source>texture in pixels</source>
        <translation>tekstura w pikselach</translation>
    </message>
    <message>
        <source>objects</source>
        <translation>obiekty</translation>
    </message>
    <message>
        <source>groups</source>
        <translation>grupy</translation>
    </message>
    <message>
        <source>position</source>
        <translation>położenie</translation>
    </message>
    <message>
        <source>normal</source>
        <translation>normalna</translation>
    </message>
    <message>
        <source>colour</source>
        <translation>kolor</translation>
    </message>
    <message>
        <source>texture coordinate</source>
        <translation>współrzędna tekstury</translation>
    </message>
    <message>
        <source>face colour</source>
        <translation>kolor ściany</translation>
    </message>
    <message>
        <source>not looked at</source>
        <translation>nie sprawdzano</translation>
    </message>
    <message>
        <source>fails: a list of its own</source>
        <translation>błąd: własna lista</translation>
    </message>
    <message>
        <source>fails: a type that takes no bytes</source>
        <translation>błąd: typ bez bajtów</translation>
    </message>
    <message>
        <source>skipped</source>
        <translation>pomijane</translation>
    </message>
    <message>
        <source>skipped, and its bytes shift the rest</source>
        <translation>pomijane, a bajty przesuwają resztę</translation>
    </message>
    <message>
        <source>by its first line, &quot;ply&quot;</source>
        <translation>po pierwszym wierszu „ply”</translation>
    </message>
    <message>
        <source>list of %1, counted by %2</source>
        <translation>lista %1, liczona przez %2</translation>
    </message>
    <message>
        <source>element</source>
        <translation>element</translation>
    </message>
    <message>
        <source>properties</source>
        <translation>właściwości</translation>
    </message>
    <message>
        <source>type</source>
        <translation>typ</translation>
    </message>
    <message>
        <source>elements</source>
        <translation>elementy</translation>
    </message>
    <message>
        <source>channel</source>
        <translation>kanał</translation>
    </message>
    <message>
        <source>mean</source>
        <translation>średnia</translation>
    </message>
    <message>
        <source>red</source>
        <translation>czerwony</translation>
    </message>
    <message>
        <source>green</source>
        <translation>zielony</translation>
    </message>
    <message>
        <source>blue</source>
        <translation>niebieski</translation>
    </message>
    <message>
        <source>alpha</source>
        <translation>alfa</translation>
    </message>
    <message>
        <source>colours</source>
        <translation>kolory</translation>
    </message>
    <message>
        <source>size in pixels</source>
        <translation>rozmiar w pikselach</translation>
    </message>
    <message>
        <source>ambient colour</source>
        <translation>kolor otoczenia</translation>
    </message>
    <message>
        <source>ambient intensity</source>
        <translation>natężenie otoczenia</translation>
    </message>
    <message>
        <source>diffuse intensity</source>
        <translation>natężenie rozproszenia</translation>
    </message>
    <message>
        <source>specular colour</source>
        <translation>kolor odbicia</translation>
    </message>
    <message>
        <source>specular intensity</source>
        <translation>natężenie odbicia</translation>
    </message>
    <message>
        <source>emissive colour</source>
        <translation>kolor emisji</translation>
    </message>
    <message>
        <source>emissive intensity</source>
        <translation>natężenie emisji</translation>
    </message>
    <message>
        <source>shininess</source>
        <translation>połysk</translation>
    </message>
    <message>
        <source>transparency</source>
        <translation>przezroczystość</translation>
    </message>
    <message>
        <source>base reflectance</source>
        <translation>odbicie podstawowe</translation>
    </message>
    <message>
        <source>detail noise</source>
        <translation>szum szczegółów</translation>
    </message>
    <message>
        <source>none</source>
        <translation>brak</translation>
    </message>
    <message>
        <source>face colours</source>
        <translation>kolory ścian</translation>
    </message>
    <message>
        <source>other comments</source>
        <translation>inne komentarze</translation>
    </message>
    <message>
        <source>header</source>
        <translation>nagłówek</translation>
    </message>
    <message>
        <source>encoding</source>
        <translation>kodowanie</translation>
    </message>
    <message>
        <source>expected &quot;end_header&quot;, found the end of the file</source>
        <translation>oczekiwano „end_header”, znaleziono koniec pliku</translation>
    </message>
    <message>
        <source>expected &quot;ply&quot; in the first line, found &quot;%1&quot;</source>
        <translation>oczekiwano „ply” w pierwszym wierszu, znaleziono „%1”</translation>
    </message>
    <message>
        <source>expected a line of a PLY header, found &quot;%1&quot;</source>
        <translation>oczekiwano wiersza nagłówka PLY, znaleziono „%1”</translation>
    </message>
    <message>
        <source>is encoded in ASCII; only binary PLY is read</source>
        <translation>jest zakodowany w ASCII; czytany jest tylko binarny PLY</translation>
    </message>
    <message>
        <source>expected the format &quot;binary_little_endian&quot; or &quot;binary_big_endian&quot;, found &quot;%1&quot;</source>
        <translation>oczekiwano formatu „binary_little_endian” lub „binary_big_endian”, znaleziono „%1”</translation>
    </message>
    <message>
        <source>has a list &quot;%1&quot;; the only list that is read is &quot;vertex_indices&quot;</source>
        <translation>ma listę „%1”; jedyną czytaną listą jest „vertex_indices”</translation>
    </message>
    <message>
        <source>stores &quot;%1&quot; as &quot;%2&quot;, a type that is read as no bytes</source>
        <translation>przechowuje „%1” jako „%2”, typ czytany jako zero bajtów</translation>
    </message>
    <message>
        <source>has the elements %1; expected vertex, face and velquin_material first, in this order</source>
        <translation>ma elementy %1; oczekiwano najpierw vertex, face i velquin_material, w tej kolejności</translation>
    </message>
    <message>
        <source>expected a vertex element of at least 3 properties, found %1</source>
        <translation>oczekiwano elementu vertex o co najmniej 3 właściwościach, znaleziono %1</translation>
    </message>
    <message>
        <source>the header announces a body of %1 bytes, the file holds %2: %3 are missing</source>
        <translation>nagłówek zapowiada treść o liczbie bajtów %1, w pliku jest %2: brakuje %3</translation>
    </message>
    <message numerus="yes">
        <source>has a face of %n corner(s); only triangles are read</source>
        <translation>
            <numerusform>ma ścianę o %n narożniku; czytane są tylko trójkąty</numerusform>
            <numerusform>ma ścianę o %n narożnikach; czytane są tylko trójkąty</numerusform>
            <numerusform>ma ścianę o %n narożnikach; czytane są tylko trójkąty</numerusform>
        </translation>
    </message>
    <message>
        <source>a face asks for a vertex that is not there</source>
        <translation>ściana wymaga wierzchołka, którego nie ma</translation>
    </message>
    <message numerus="yes">
        <source>holds %n point(s) and no faces; as a mesh it is not read</source>
        <translation>
            <numerusform>zawiera %n punkt i żadnych ścian; nie jest czytany jako siatka</numerusform>
            <numerusform>zawiera %n punkty i żadnych ścian; nie jest czytany jako siatka</numerusform>
            <numerusform>zawiera %n punktów i żadnych ścian; nie jest czytany jako siatka</numerusform>
        </translation>
    </message>
    <message>
        <source>faces have colours; such a file is read only where they are asked for</source>
        <translation>ściany mają kolory; taki plik jest czytany tylko tam, gdzie się ich wymaga</translation>
    </message>
    <message>
        <source>by its header</source>
        <translation>po nagłówku</translation>
    </message>
    <message>
        <source>depth</source>
        <translation>głębokość</translation>
    </message>
    <message>
        <source>children</source>
        <translation>dzieci</translation>
    </message>
    <message>
        <source>nodes</source>
        <translation>węzły</translation>
    </message>
    <message>
        <source>levels below the root</source>
        <translation>poziomy poniżej korzenia</translation>
    </message>
    <message>
        <source>indices outside</source>
        <translation>indeksy spoza zakresu</translation>
    </message>
    <message>
        <source>lists of other lengths</source>
        <translation>listy innej długości</translation>
    </message>
    <message>
        <source>tree</source>
        <translation>drzewo</translation>
    </message>
    <message numerus="yes">
        <source>tree, its first %n node(s)</source>
        <translation>
            <numerusform>drzewo, pierwszy węzeł (%n)</numerusform>
            <numerusform>drzewo, pierwsze %n węzły</numerusform>
            <numerusform>drzewo, pierwszych %n węzłów</numerusform>
        </translation>
    </message>
    <message>
        <source>version</source>
        <translation>wersja</translation>
    </message>
    <message>
        <source>expected version 1.0 or 2.0, found %1</source>
        <translation>oczekiwano wersji 1.0 lub 2.0, znaleziono %1</translation>
    </message>
    <message>
        <source>expected a shape or a tree of shapes, found damage or an early end</source>
        <translation>oczekiwano kształtu lub drzewa kształtów, znaleziono uszkodzenie lub zbyt wczesny koniec</translation>
    </message>
    <message>
        <source>holds</source>
        <translation>zawartość</translation>
    </message>
    <message>
        <source>shape</source>
        <translation>kształt</translation>
    </message>
    <message numerus="yes">
        <source>%n byte(s) (follows|follow) the shape</source>
        <translation>
            <numerusform>%n bajt następuje po kształcie</numerusform>
            <numerusform>%n bajty następują po kształcie</numerusform>
            <numerusform>%n bajtów następuje po kształcie</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n byte(s) (follows|follow) the tree</source>
        <translation>
            <numerusform>%n bajt następuje po drzewie</numerusform>
            <numerusform>%n bajty następują po drzewie</numerusform>
            <numerusform>%n bajtów następuje po drzewie</numerusform>
        </translation>
    </message>
    <message>
        <source>shape tree</source>
        <translation>drzewo kształtów</translation>
    </message>
    <message>
        <source>by its first line, which starts with &quot;solid&quot;</source>
        <translation>po pierwszym wierszu, który zaczyna się od „solid”</translation>
    </message>
    <message numerus="yes">
        <source>by its size, which is that of the %n facet(s) it claims</source>
        <translation>
            <numerusform>po rozmiarze, zgodnym z podaną w nim %n ścianką</numerusform>
            <numerusform>po rozmiarze, zgodnym z podanymi w nim %n ściankami</numerusform>
            <numerusform>po rozmiarze, zgodnym z podanymi w nim %n ściankami</numerusform>
        </translation>
    </message>
    <message>
        <source>after cleaning</source>
        <translation>po oczyszczeniu</translation>
    </message>
    <message>
        <source>tags</source>
        <translation>znaczniki</translation>
    </message>
    <message>
        <source>the header says %1 facets = %2 bytes, the file holds %3 bytes, room for %4 facets</source>
        <translation>według nagłówka ścianek jest %1, czyli bajtów %2; w pliku bajtów jest %3, a ścianek mieści się %4</translation>
    </message>
    <message numerus="yes">
        <source>a binary STL of %n facet(s) whose header begins with &quot;solid&quot;: such a file is read as text, and as text it holds no vertices</source>
        <translation>
            <numerusform>binarny STL o %n ściance, którego nagłówek zaczyna się od „solid”: taki plik jest czytany jako tekst, a jako tekst nie zawiera wierzchołków</numerusform>
            <numerusform>binarny STL o %n ściankach, którego nagłówek zaczyna się od „solid”: taki plik jest czytany jako tekst, a jako tekst nie zawiera wierzchołków</numerusform>
            <numerusform>binarny STL o %n ściankach, którego nagłówek zaczyna się od „solid”: taki plik jest czytany jako tekst, a jako tekst nie zawiera wierzchołków</numerusform>
        </translation>
    </message>
    <message>
        <source>begins with &quot;solid&quot; as text does, but holds binary data whose size is not that of the facets it claims</source>
        <translation>zaczyna się od „solid” jak tekst, ale zawiera dane binarne, których rozmiar nie odpowiada podanej liczbie ścianek</translation>
    </message>
    <message>
        <source>expected lines that begin with &quot;vertex&quot;, found none</source>
        <translation>oczekiwano wierszy zaczynających się od „vertex”, nie znaleziono żadnego</translation>
    </message>
    <message>
        <source>no facet has three different corners</source>
        <translation>żadna ścianka nie ma trzech różnych narożników</translation>
    </message>
    <message>
        <source>tag</source>
        <translation>znacznik</translation>
    </message>
    <message>
        <source>subTag</source>
        <translation>podznacznik</translation>
    </message>
    <message>
        <source>area (mm²)</source>
        <translation>pole (mm²)</translation>
    </message>
    <message>
        <source>line %1: expected &quot;vertex&quot; and three numbers with spaces between, found &quot;%2&quot;</source>
        <translation>wiersz %1: oczekiwano „vertex” i trzech liczb rozdzielonych spacjami, znaleziono „%2”</translation>
    </message>
    <message>
        <source>expected three vertices for each facet, found %1 vertices, the last in line %2</source>
        <translation>oczekiwano trzech wierzchołków na każdą ściankę, znaleziono wierzchołków: %1, ostatni w wierszu %2</translation>
    </message>
    <message>
        <source>by its first line, which holds &quot;# Labeled&quot;, and the four counts in its second</source>
        <translation>po pierwszym wierszu, zawierającym „# Labeled”, i czterech liczbach w drugim</translation>
    </message>
    <message>
        <source>tetrahedra</source>
        <translation>czworościany</translation>
    </message>
    <message>
        <source>face rows</source>
        <translation>wiersze ścian</translation>
    </message>
    <message>
        <source>bound-face rows</source>
        <translation>wiersze ścian brzegowych</translation>
    </message>
    <message>
        <source>points</source>
        <translation>punkty</translation>
    </message>
    <message>
        <source>with unknown points</source>
        <translation>z nieznanymi punktami</translation>
    </message>
    <message>
        <source>flat</source>
        <translation>płaskie</translation>
    </message>
    <message>
        <source>inverted</source>
        <translation>odwrócone</translation>
    </message>
    <message>
        <source>boundary</source>
        <translation>brzeg</translation>
    </message>
    <message>
        <source>edges</source>
        <translation>krawędzie</translation>
    </message>
    <message>
        <source>Euler characteristic</source>
        <translation>charakterystyka Eulera</translation>
    </message>
    <message>
        <source>open edges</source>
        <translation>otwarte krawędzie</translation>
    </message>
    <message>
        <source>problem</source>
        <translation>problem</translation>
    </message>
    <message>
        <source>bad references</source>
        <translation>błędne odwołania</translation>
    </message>
    <message>
        <source>by its first line, which is &quot;FemBoundaryConditions&quot;</source>
        <translation>po pierwszym wierszu, „FemBoundaryConditions”</translation>
    </message>
    <message>
        <source>conditions</source>
        <translation>warunki</translation>
    </message>
    <message>
        <source>volume mesh</source>
        <translation>siatka objętościowa</translation>
    </message>
    <message>
        <source>boundary conditions</source>
        <translation>warunki brzegowe</translation>
    </message>
    <message>
        <source>Show failures only, no warnings</source>
        <translation>Pokazuj tylko niepowodzenia, bez ostrzeżeń</translation>
    </message>
    <message>
        <source>Show more of what is done, on stderr</source>
        <translation>Pokazuj więcej z tego, co się dzieje, na standardowym wyjściu błędów</translation>
    </message>
    <message>
        <source>Exit with 5 when all went well but for warnings</source>
        <translation>Zakończ kodem 5, gdy wszystko się udało poza ostrzeżeniami</translation>
    </message>
    <message>
        <source>Colour messages: auto, always or never</source>
        <translation>Kolorowe komunikaty: auto, always (zawsze) lub never (nigdy)</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>Użycie</translation>
    </message>
    <message>
        <source>SUBCOMMAND</source>
        <translation>POLECENIE</translation>
    </message>
    <message>
        <source>Positionals</source>
        <translation>Argumenty</translation>
    </message>
    <message>
        <source>REQUIRED</source>
        <translation>WYMAGANE</translation>
    </message>
    <message>
        <source>Needs</source>
        <translation>Wymaga</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Opcje</translation>
    </message>
    <message>
        <source>Subcommands</source>
        <translation>Polecenia</translation>
    </message>
    <message>
        <source>see &quot;%1 --help&quot;</source>
        <translation>zobacz „%1 --help”</translation>
    </message>
    <message>
        <source>Looks at, checks and converts surface meshes of dental and maxillofacial scans.</source>
        <translation>Ogląda, sprawdza i przekształca siatki powierzchni ze skanów stomatologicznych i szczękowo-twarzowych.</translation>
    </message>
    <message>
        <source>Print this help message and exit</source>
        <translation>Wypisz tę pomoc i zakończ</translation>
    </message>
    <message>
        <source>Display program version information and exit</source>
        <translation>Wypisz wersję programu i zakończ</translation>
    </message>
    <message>
        <source>the results could not be written to the standard output</source>
        <translation>nie udało się zapisać wyników na standardowe wyjście</translation>
    </message>
    <message numerus="yes">
        <source> (%n such face(s))</source>
        <translation>
            <numerusform> (%n taka ściana)</numerusform>
            <numerusform> (%n takie ściany)</numerusform>
            <numerusform> (%n takich ścian)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source> (%n such line(s))</source>
        <translation>
            <numerusform> (%n taki wiersz)</numerusform>
            <numerusform> (%n takie wiersze)</numerusform>
            <numerusform> (%n takich wierszy)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source> (%n such corner(s))</source>
        <translation>
            <numerusform> (%n taki narożnik)</numerusform>
            <numerusform> (%n takie narożniki)</numerusform>
            <numerusform> (%n takich narożników)</numerusform>
        </translation>
    </message>
    <message>
        <source>a face of 4 corners; only triangles are read</source>
        <translation>ściana o 4 narożnikach; czytane są tylko trójkąty</translation>
    </message>
    <message>
        <source>too few numbers: expected 3 behind &quot;v&quot; and &quot;vn&quot;, 2 behind &quot;vt&quot;</source>
        <translation>za mało liczb: oczekiwano 3 po „v” i „vn”, 2 po „vt”</translation>
    </message>
    <message>
        <source>a face asks for &quot;%1&quot; number %2, the file has %3</source>
        <translation>ściana wymaga „%1” numer %2, w pliku jest %3</translation>
    </message>
    <message>
        <source>expected an index from 1 on as first number of each corner</source>
        <translation>oczekiwano indeksu od 1 wzwyż jako pierwszej liczby każdego narożnika</translation>
    </message>
    <message>
        <source>a face with relative (negative) indices; these are not read</source>
        <translation>ściana z indeksami względnymi (ujemnymi); nie są one czytane</translation>
    </message>
    <message>
        <source>names several material libraries that exist; one is read</source>
        <translation>podaje kilka istniejących bibliotek materiałów; czytana jest jedna</translation>
    </message>
    <message>
        <source>some corners of faces have a texture coordinate and others have none</source>
        <translation>niektóre narożniki ścian mają współrzędną tekstury, a inne nie</translation>
    </message>
    <message>
        <source>its textures do not fit into one atlas of at most 8192 x 8192 pixels</source>
        <translation>jego tekstury nie mieszczą się w atlasie o najwyżej 8192 x 8192 pikselach</translation>
    </message>
    <message>
        <source>expected vertices, found none</source>
        <translation>oczekiwano wierzchołków, nie znaleziono żadnego</translation>
    </message>
    <message>
        <source>could not be read: </source>
        <translation>nie udało się odczytać: </translation>
    </message>
    <message>
        <source>mixed</source>
        <translation>mieszany</translation>
    </message>
    <message>
        <source>the file could not be stored: </source>
        <translation>nie udało się trwale zapisać pliku: </translation>
    </message>
    <message>
        <source>nothing was written; is the disk full?</source>
        <translation>nic nie zapisano; czy dysk jest pełny?</translation>
    </message>
    <message>
        <source>expected to write %1 bytes, found %2 in the file; is the disk full?</source>
        <translation>bajtów miało być %1, w pliku jest %2; czy dysk jest pełny?</translation>
    </message>
    <message>
        <source>the file could not be moved into place: </source>
        <translation>nie udało się przenieść pliku na miejsce: </translation>
    </message>
    <message>
        <source>is a link to a file that does not exist</source>
        <translation>jest dowiązaniem do pliku, który nie istnieje</translation>
    </message>
    <message>
        <source>is a folder</source>
        <translation>jest katalogiem</translation>
    </message>
    <message>
        <source>is a pipe, socket or device, and is not replaced</source>
        <translation>jest potokiem, gniazdem lub urządzeniem i nie zostanie zastąpiony</translation>
    </message>
    <message>
        <source>exists already; --force replaces it</source>
        <translation>już istnieje; --force zastępuje</translation>
    </message>
    <message>
        <source>the folder &quot;%1&quot; does not exist</source>
        <translation>katalog „%1” nie istnieje</translation>
    </message>
    <message>
        <source>the folder &quot;%1&quot; cannot be written to: %2</source>
        <translation>nie można zapisywać w katalogu „%1”: %2</translation>
    </message>
    <message>
        <source>interrupted; nothing was written</source>
        <translation>przerwano; nic nie zapisano</translation>
    </message>
    <message>
        <source>cannot be written: </source>
        <translation>nie można zapisać: </translation>
    </message>
    <message numerus="yes">
        <source>%n facet(s) (is|are) more than an STL file can count</source>
        <translation>
            <numerusform>%n ścianka to więcej, niż może policzyć plik STL</numerusform>
            <numerusform>%n ścianki to więcej, niż może policzyć plik STL</numerusform>
            <numerusform>%n ścianek to więcej, niż może policzyć plik STL</numerusform>
        </translation>
    </message>
    <message>
        <source>&quot;%1&quot;: expected a rule such as 3=31, 4/1=32/0 or *=1; tags go from 0 to 255, subTags from -128 to 127</source>
        <translation>„%1”: oczekiwano reguły takiej jak 3=31, 4/1=32/0 lub *=1; znaczniki są od 0 do 255, podznaczniki od -128 do 127</translation>
    </message>
    <message>
        <source>%1: no facet for the rule %2</source>
        <translation>%1: brak ścianek dla reguły %2</translation>
    </message>
    <message>
        <source>expected a file name that ends with .stl</source>
        <translation>oczekiwano nazwy pliku zakończonej na .stl</translation>
    </message>
    <message>
        <source>is read as ASCII STL, which has no tags</source>
        <translation>jest czytany jako ASCII STL, który nie ma znaczników</translation>
    </message>
    <message>
        <source>expected a binary STL of %1 facets = %2 bytes, as its header says, found %3 bytes</source>
        <translation>oczekiwano binarnego STL, w którym według nagłówka ścianek jest %1, czyli bajtów %2; znaleziono bajtów: %3</translation>
    </message>
    <message>
        <source>expected %1 facets, could read %2: %3</source>
        <translation>oczekiwano ścianek: %1, odczytano: %2: %3</translation>
    </message>
    <message>
        <source>expected the suffix .%1</source>
        <translation>oczekiwano rozszerzenia .%1</translation>
    </message>
    <message>
        <source>%1: %2 x %3 pixels</source>
        <translation>%1: %2 x %3 pikseli</translation>
    </message>
    <message>
        <source>a PLY header cannot name an image &quot;%1&quot;: spaces in a row, at an end, and control letters get lost</source>
        <translation>nagłówek PLY nie może podać obrazu „%1”: kolejne spacje, spacje na brzegach i znaki sterujące przepadają</translation>
    </message>
    <message>
        <source>the image &quot;%1&quot; does not exist</source>
        <translation>obraz „%1” nie istnieje</translation>
    </message>
    <message>
        <source>an image stands before the first &quot;newmtl&quot;</source>
        <translation>obraz znajduje się przed pierwszym „newmtl”</translation>
    </message>
    <message>
        <source>%1, line %2: %3</source>
        <translation>%1, wiersz %2: %3</translation>
    </message>
    <message>
        <source>the material library &quot;%1&quot; does not exist</source>
        <translation>biblioteka materiałów „%1” nie istnieje</translation>
    </message>
    <message>
        <source>has no texture: it names no material library</source>
        <translation>nie ma tekstury: nie podaje biblioteki materiałów</translation>
    </message>
    <message>
        <source>has no texture: no material of its faces names an image</source>
        <translation>nie ma tekstury: żaden materiał jego ścian nie podaje obrazu</translation>
    </message>
    <message>
        <source>has no texture coordinates</source>
        <translation>nie ma współrzędnych tekstury</translation>
    </message>
    <message>
        <source>its texture could not be read</source>
        <translation>nie udało się odczytać jego tekstury</translation>
    </message>
    <message>
        <source>has no texture: its header names none</source>
        <translation>nie ma tekstury: nagłówek żadnej nie podaje</translation>
    </message>
    <message>
        <source>has colours of its own; these go before its texture</source>
        <translation>ma własne kolory; mają one pierwszeństwo przed teksturą</translation>
    </message>
    <message>
        <source>expected one of the suffixes .obj, .ply</source>
        <translation>oczekiwano jednego z rozszerzeń .obj, .ply</translation>
    </message>
    <message>
        <source>Textured scan to read: .obj, .ply</source>
        <translation>Skan z teksturą do odczytu: .obj, .ply</translation>
    </message>
    <message>
        <source>Image to write, .png</source>
        <translation>Obraz do zapisania, .png</translation>
    </message>
    <message>
        <source>Mesh to write, .ply, whose texture is this image</source>
        <translation>Siatka do zapisania, .ply, której teksturą jest ten obraz</translation>
    </message>
    <message>
        <source>Replace files that exist</source>
        <translation>Zastąp istniejące pliki</translation>
    </message>
    <message>
        <source>Packs the textures of a scan into one image, and writes a mesh that uses it.</source>
        <translation>Pakuje tekstury skanu do jednego obrazu i zapisuje siatkę, która go używa.</translation>
    </message>
    <message>
        <source>expected the suffix .ply</source>
        <translation>oczekiwano rozszerzenia .ply</translation>
    </message>
    <message>
        <source>File to write, .ply</source>
        <translation>Plik do zapisania, .ply</translation>
    </message>
    <message>
        <source>Replace OUT when it exists</source>
        <translation>Zastąp OUT, jeśli istnieje</translation>
    </message>
    <message>
        <source>Turns the texture of a scan into colours of its vertices.</source>
        <translation>Zamienia teksturę skanu na kolory jego wierzchołków.</translation>
    </message>
    <message>
        <source>How the meshes look: own (what a PLY file says), default, metal or distractor</source>
        <translation>Wygląd siatek: own (co mówi plik PLY), default, metal lub distractor</translation>
    </message>
    <message>
        <source>Shows which shapes load, which are skipped, and why.</source>
        <translation>Pokazuje, które kształty są wczytywane, które pomijane i dlaczego.</translation>
    </message>
    <message>
        <source>An associated-shapes document</source>
        <translation>Dokument powiązanych kształtów</translation>
    </message>
    <message>
        <source>Print JSON, schema surfaceio.bundle/1</source>
        <translation>Wypisz JSON, schemat surfaceio.bundle/1</translation>
    </message>
    <message>
        <source>Writes the document that lists some meshes.</source>
        <translation>Zapisuje dokument z listą siatek.</translation>
    </message>
    <message>
        <source>File to write</source>
        <translation>Plik do zapisania</translation>
    </message>
    <message>
        <source>Files to list: .stl, .ply, .obj</source>
        <translation>Pliki do umieszczenia na liście: .stl, .ply, .obj</translation>
    </message>
    <message>
        <source>Writes each shape as a PLY file that carries its material.</source>
        <translation>Zapisuje każdy kształt jako plik PLY wraz z jego materiałem.</translation>
    </message>
    <message>
        <source>Folder to write to; made when it is missing</source>
        <translation>Katalog docelowy; zostanie utworzony, jeśli go brak</translation>
    </message>
    <message>
        <source>Lists, writes and takes apart the documents that pair mesh files with materials.</source>
        <translation>Wypisuje, zapisuje i rozkłada dokumenty łączące pliki siatek z materiałami.</translation>
    </message>
    <message numerus="yes">
        <source>%n error(s)</source>
        <translation>
            <numerusform>%n błąd</numerusform>
            <numerusform>%n błędy</numerusform>
            <numerusform>%n błędów</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n warning(s)</source>
        <translation>
            <numerusform>%n ostrzeżenie</numerusform>
            <numerusform>%n ostrzeżenia</numerusform>
            <numerusform>%n ostrzeżeń</numerusform>
        </translation>
    </message>
    <message>
        <source>: sound</source>
        <translation>: w porządku</translation>
    </message>
    <message>
        <source>Files and folders to check; conditions behind the volume mesh they are for</source>
        <translation>Pliki i katalogi do sprawdzenia; warunki za siatką objętościową, do której należą</translation>
    </message>
    <message>
        <source>Print JSON, schema surfaceio.check/1</source>
        <translation>Wypisz JSON, schemat surfaceio.check/1</translation>
    </message>
    <message>
        <source>Finds out what is wrong with a file, and says what to do about it.</source>
        <translation>Ustala, co jest nie tak z plikiem, i mówi, co z tym zrobić.</translation>
    </message>
    <message>
        <source>The shell: bash, zsh or fish</source>
        <translation>Powłoka: bash, zsh lub fish</translation>
    </message>
    <message>
        <source>Prints a script that lets a shell complete the verbs, options and values of this program.</source>
        <translation>Wypisuje skrypt, dzięki któremu powłoka uzupełnia polecenia, opcje i wartości tego programu.</translation>
    </message>
    <message>
        <source>Prints the manual page.</source>
        <translation>Wypisuje stronę podręcznika.</translation>
    </message>
    <message>
        <source>expected yyyy-mm-dd</source>
        <translation>oczekiwano rrrr-mm-dd</translation>
    </message>
    <message>
        <source>found no files of the suffixes %1</source>
        <translation>nie znaleziono plików o rozszerzeniach %1</translation>
    </message>
    <message>
        <source>: expected a folder, found a file</source>
        <translation>: oczekiwano katalogu, znaleziono plik</translation>
    </message>
    <message>
        <source>interrupted; %1 of %2 files were converted</source>
        <translation>przerwano; przekształcono plików: %1 z %2</translation>
    </message>
    <message>
        <source>%1 of %2 files failed</source>
        <translation>nie powiodło się plików: %1 z %2</translation>
    </message>
    <message>
        <source>%1 of %2 files were not tried, as --fail-fast was given</source>
        <translation>plików, których nie próbowano, bo podano --fail-fast: %1 z %2</translation>
    </message>
    <message numerus="yes">
        <source>expected IN and OUT, or --to SUFFIX for several files; found %n file(s)</source>
        <translation>
            <numerusform>oczekiwano IN i OUT albo --to SUFFIX dla wielu plików; znaleziono %n plik</numerusform>
            <numerusform>oczekiwano IN i OUT albo --to SUFFIX dla wielu plików; znaleziono %n pliki</numerusform>
            <numerusform>oczekiwano IN i OUT albo --to SUFFIX dla wielu plików; znaleziono %n plików</numerusform>
        </translation>
    </message>
    <message>
        <source>Convert every FILE to this suffix: </source>
        <translation>Przekształć każdy FILE do tego rozszerzenia: </translation>
    </message>
    <message>
        <source>With --to: where the files go; beside each when not given</source>
        <translation>Z --to: gdzie trafią pliki; bez tej opcji obok każdego</translation>
    </message>
    <message>
        <source>Files converted at a time; as many as there are processors</source>
        <translation>Pliki przekształcane jednocześnie; domyślnie tyle, ile procesorów</translation>
    </message>
    <message>
        <source>Only print what would be converted to what</source>
        <translation>Tylko wypisz, co w co zostałoby przekształcone</translation>
    </message>
    <message>
        <source>Begin no other file after one failed</source>
        <translation>Nie zaczynaj kolejnego pliku po niepowodzeniu</translation>
    </message>
    <message>
        <source>Print what became of each file as JSON, schema surfaceio.convert/1</source>
        <translation>Wypisz, co stało się z każdym plikiem, jako JSON, schemat surfaceio.convert/1</translation>
    </message>
    <message>
        <source>Scan metadata: the scanner&apos;s name</source>
        <translation>Metadane skanu: nazwa skanera</translation>
    </message>
    <message>
        <source>Scan metadata: its serial number</source>
        <translation>Metadane skanu: jego numer seryjny</translation>
    </message>
    <message>
        <source>Scan metadata: the scan came in from outside</source>
        <translation>Metadane skanu: skan pochodzi z zewnątrz</translation>
    </message>
    <message>
        <source>Scan metadata: version of its software</source>
        <translation>Metadane skanu: wersja jego oprogramowania</translation>
    </message>
    <message>
        <source>Scan metadata: date of acquisition, yyyy-mm-dd</source>
        <translation>Metadane skanu: data akwizycji, rrrr-mm-dd</translation>
    </message>
    <message>
        <source>IN and OUT; with --to any number of files, folders and quoted patterns. Read are %1, written %2</source>
        <translation>IN i OUT; z --to dowolna liczba plików, katalogów i wzorców w cudzysłowie. Odczyt: %1, zapis: %2</translation>
    </message>
    <message>
        <source>PLY: write the alpha of colours</source>
        <translation>PLY: zapisz kanał alfa kolorów</translation>
    </message>
    <message>
        <source>PLY: write a material, metal or distractor</source>
        <translation>PLY: zapisz materiał, metal lub distractor</translation>
    </message>
    <message>
        <source>OBJ, PLY: what becomes of a texture; bake makes it colours, none leaves it out</source>
        <translation>OBJ, PLY: co stanie się z teksturą; bake robi z niej kolory, none ją pomija</translation>
    </message>
    <message>
        <source>Writes meshes as files of another kind; the suffixes say which.</source>
        <translation>Zapisuje siatki jako pliki innego rodzaju; mówią o nim rozszerzenia.</translation>
    </message>
    <message>
        <source>suffix</source>
        <translation>rozszerzenie</translation>
    </message>
    <message>
        <source>info</source>
        <translation>info</translation>
    </message>
    <message>
        <source>convert from</source>
        <translation>przekształcanie z</translation>
    </message>
    <message>
        <source>convert to</source>
        <translation>przekształcanie do</translation>
    </message>
    <message>
        <source>formats</source>
        <translation>formaty</translation>
    </message>
    <message>
        <source>Print JSON, schema surfaceio.formats/1</source>
        <translation>Wypisz JSON, schemat surfaceio.formats/1</translation>
    </message>
    <message>
        <source>Lists the file formats that are known, and what can be done with each.</source>
        <translation>Wypisuje znane formaty plików i to, co można z każdym zrobić.</translation>
    </message>
    <message>
        <source>expected one of the suffixes .stl, .ply</source>
        <translation>oczekiwano jednego z rozszerzeń .stl, .ply</translation>
    </message>
    <message>
        <source>no scan metadata</source>
        <translation>brak metadanych skanu</translation>
    </message>
    <message>
        <source>the %1 &quot;%2&quot; is stored as &quot;%3&quot;</source>
        <translation>%1: „%2” zapisano jako „%3”</translation>
    </message>
    <message>
        <source>expected a single line</source>
        <translation>oczekiwano jednego wiersza</translation>
    </message>
    <message>
        <source>yes or no</source>
        <translation>yes (tak) lub no (nie)</translation>
    </message>
    <message>
        <source>Date of acquisition, yyyy-mm-dd</source>
        <translation>Data akwizycji, rrrr-mm-dd</translation>
    </message>
    <message>
        <source>Prints the scan metadata of a file.</source>
        <translation>Wypisuje metadane skanu z pliku.</translation>
    </message>
    <message>
        <source>Print JSON, schema surfaceio.header/1</source>
        <translation>Wypisz JSON, schemat surfaceio.header/1</translation>
    </message>
    <message>
        <source>Changes what is given and keeps the rest.</source>
        <translation>Zmienia to, co podano, a resztę zachowuje.</translation>
    </message>
    <message>
        <source>Takes the scan metadata out of a file.</source>
        <translation>Usuwa metadane skanu z pliku.</translation>
    </message>
    <message>
        <source>A binary STL or PLY file</source>
        <translation>Binarny plik STL lub PLY</translation>
    </message>
    <message>
        <source>Shows and changes the scan metadata in a binary STL or PLY file; the mesh keeps every byte.</source>
        <translation>Pokazuje i zmienia metadane skanu w binarnym pliku STL lub PLY; siatka zachowuje każdy bajt.</translation>
    </message>
    <message>
        <source>Files to look at</source>
        <translation>Pliki do obejrzenia</translation>
    </message>
    <message>
        <source>Print JSON, schema surfaceio.info/1</source>
        <translation>Wypisz JSON, schemat surfaceio.info/1</translation>
    </message>
    <message>
        <source>Shows what a mesh file holds, and what is wrong with one that cannot be read.</source>
        <translation>Pokazuje, co zawiera plik siatki i co jest nie tak z plikiem, którego nie da się odczytać.</translation>
    </message>
    <message>
        <source>expected the suffix .png</source>
        <translation>oczekiwano rozszerzenia .png</translation>
    </message>
    <message>
        <source>File to show: %1</source>
        <translation>Plik do pokazania: %1</translation>
    </message>
    <message>
        <source>Picture to write, .png</source>
        <translation>Obraz do zapisania, .png</translation>
    </message>
    <message>
        <source>Width and height in pixels; with --sheet, of each view</source>
        <translation>Szerokość i wysokość w pikselach; z --sheet każdego widoku</translation>
    </message>
    <message>
        <source>Where to look from: front, occlusal, left, right or iso</source>
        <translation>Kierunek patrzenia: front, occlusal, left, right lub iso</translation>
    </message>
    <message>
        <source>What colours it: auto, tag, colour or normal</source>
        <translation>Co nadaje kolor: auto, tag, colour lub normal</translation>
    </message>
    <message>
        <source>All views on one picture</source>
        <translation>Wszystkie widoki na jednym obrazie</translation>
    </message>
    <message>
        <source>Replace the picture when it exists</source>
        <translation>Zastąp obraz, jeśli istnieje</translation>
    </message>
    <message>
        <source>Draws a picture of a mesh, without a display or a graphics card.</source>
        <translation>Rysuje obraz siatki, bez ekranu i karty graficznej.</translation>
    </message>
    <message>
        <source>File to write: %1</source>
        <translation>Plik do zapisania: %1</translation>
    </message>
    <message>
        <source>How many facets, exactly</source>
        <translation>Dokładna liczba ścianek</translation>
    </message>
    <message>
        <source>Another seed gives another mouth</source>
        <translation>Inne ziarno daje inne uzębienie</translation>
    </message>
    <message>
        <source>Writes a synthetic scan of a lower dental arch, the same on every run; each tooth has its own facet tag.</source>
        <translation>Zapisuje sztuczny skan dolnego łuku zębowego, za każdym razem taki sam; każdy ząb ma własny znacznik ścianek.</translation>
    </message>
    <message>
        <source>Prints the tags of a file, their facets and areas.</source>
        <translation>Wypisuje znaczniki pliku, ich ścianki i pola.</translation>
    </message>
    <message>
        <source>A binary STL file</source>
        <translation>Binarny plik STL</translation>
    </message>
    <message>
        <source>Print JSON, schema surfaceio.tags/1</source>
        <translation>Wypisz JSON, schemat surfaceio.tags/1</translation>
    </message>
    <message>
        <source>Writes the facets of each tag to a file of its own, and prints the names.</source>
        <translation>Zapisuje ścianki każdego znacznika do osobnego pliku i wypisuje nazwy.</translation>
    </message>
    <message>
        <source>Name of each file, from {name}, {tag} and {subTag}</source>
        <translation>Nazwa każdego pliku, z {name}, {tag} i {subTag}</translation>
    </message>
    <message>
        <source>Where the files go</source>
        <translation>Gdzie trafią pliki</translation>
    </message>
    <message>
        <source>Print the names as JSON, schema surfaceio.split/1</source>
        <translation>Wypisz nazwy jako JSON, schemat surfaceio.split/1</translation>
    </message>
    <message>
        <source>Puts the facets of several files into one.</source>
        <translation>Łączy ścianki kilku plików w jednym.</translation>
    </message>
    <message>
        <source>Binary STL files; TAG=FILE or TAG/SUBTAG=FILE gives all facets a tag</source>
        <translation>Binarne pliki STL; TAG=FILE lub TAG/SUBTAG=FILE nadaje wszystkim ściankom znacznik</translation>
    </message>
    <message>
        <source>Replace the file when it exists</source>
        <translation>Zastąp plik, jeśli istnieje</translation>
    </message>
    <message>
        <source>Gives facets other tags.</source>
        <translation>Nadaje ściankom inne znaczniki.</translation>
    </message>
    <message>
        <source>OLD=NEW, each TAG, TAG/SUBTAG or *; the first that fits counts</source>
        <translation>OLD=NEW, każde jako TAG, TAG/SUBTAG lub *; liczy się pierwsza pasująca</translation>
    </message>
    <message>
        <source>Shows, splits, merges and changes the facet tags of binary STL files; coordinates keep every bit.</source>
        <translation>Pokazuje, rozdziela, łączy i zmienia znaczniki ścianek w binarnych plikach STL; współrzędne zachowują każdy bit.</translation>
    </message>
    <message>
        <source>the file ends before line %1: expected %2</source>
        <translation>plik kończy się przed wierszem %1; oczekiwano: %2</translation>
    </message>
    <message>
        <source>line %1: expected %2, found &quot;%3&quot;</source>
        <translation>wiersz %1: oczekiwano: %2, znaleziono „%3”</translation>
    </message>
    <message>
        <source>point %1 of %2, three numbers with single blanks between</source>
        <translation>punkt %1 z %2, trzy liczby rozdzielone pojedynczymi spacjami</translation>
    </message>
    <message>
        <source>face row %1 of %2, five integers with single blanks between</source>
        <translation>wiersz ściany %1 z %2, pięć liczb całkowitych rozdzielonych pojedynczymi spacjami</translation>
    </message>
    <message>
        <source>bound-face row %1 of %2, five integers with single blanks between</source>
        <translation>wiersz ściany brzegowej %1 z %2, pięć liczb całkowitych rozdzielonych pojedynczymi spacjami</translation>
    </message>
    <message>
        <source>a header with &quot;# Labeled&quot;</source>
        <translation>nagłówek z „# Labeled”</translation>
    </message>
    <message>
        <source>four counts (tetrahedra, faces, bound faces, points) that the file can hold</source>
        <translation>cztery liczby (czworościany, ściany, ściany brzegowe, punkty), które mogą zmieścić się w pliku</translation>
    </message>
    <message>
        <source>the file ends before line 4: expected the number of conditions</source>
        <translation>plik kończy się przed wierszem 4: oczekiwano liczby warunków</translation>
    </message>
    <message>
        <source>the number of conditions</source>
        <translation>liczba warunków</translation>
    </message>
    <message>
        <source>condition %1 of %2, an index and three numbers with single blanks between</source>
        <translation>warunek %1 z %2, indeks i trzy liczby rozdzielone pojedynczymi spacjami</translation>
    </message>
    <message>
        <source>a face row refers to tetrahedron %1, of %2</source>
        <translation>wiersz ściany odnosi się do czworościanu %1, z %2</translation>
    </message>
    <message>
        <source>a face row refers to point %1, of %2</source>
        <translation>wiersz ściany odnosi się do punktu %1, z %2</translation>
    </message>
    <message>
        <source>a bound-face row refers to tetrahedron %1, of %2</source>
        <translation>wiersz ściany brzegowej odnosi się do czworościanu %1, z %2</translation>
    </message>
    <message>
        <source>a bound-face row refers to point %1, of %2</source>
        <translation>wiersz ściany brzegowej odnosi się do punktu %1, z %2</translation>
    </message>
    <message>
        <source>File to write, .vmesh</source>
        <translation>Plik do zapisania, .vmesh</translation>
    </message>
    <message>
        <source>Writes the tetrahedra of a file of a mesher as a volume mesh.</source>
        <translation>Zapisuje czworościany z pliku generatora siatek jako siatkę objętościową.</translation>
    </message>
    <message>
        <source>Gmsh file (.msh, version 2.2) or VTK file (.vtk), ASCII</source>
        <translation>Plik Gmsh (.msh, wersja 2.2) lub plik VTK (.vtk), ASCII</translation>
    </message>
    <message>
        <source>Keep points that no tetrahedron has, so that all keep their numbers</source>
        <translation>Zachowaj punkty, których nie ma żaden czworościan, aby wszystkie zachowały numery</translation>
    </message>
    <message>
        <source>Print JSON, schema surfaceio.vmesh-from/1</source>
        <translation>Wypisz JSON, schemat surfaceio.vmesh-from/1</translation>
    </message>
    <message>
        <source>Makes the face and bound-face rows of a volume mesh anew.</source>
        <translation>Tworzy na nowo wiersze ścian i ścian brzegowych siatki objętościowej.</translation>
    </message>
    <message>
        <source>A volume mesh</source>
        <translation>Siatka objętościowa</translation>
    </message>
    <message>
        <source>Print JSON, schema surfaceio.vmesh-faces/1</source>
        <translation>Wypisz JSON, schemat surfaceio.vmesh-faces/1</translation>
    </message>
    <message>
        <source>Prints boundary conditions: sums, and each point with its value.</source>
        <translation>Wypisuje warunki brzegowe: sumy oraz każdy punkt z jego wartością.</translation>
    </message>
    <message>
        <source>A boundary-conditions file</source>
        <translation>Plik warunków brzegowych</translation>
    </message>
    <message>
        <source>The volume mesh that they are for; shows where the points are</source>
        <translation>Siatka objętościowa, do której należą; pokazuje położenie punktów</translation>
    </message>
    <message>
        <source>Print JSON, schema surfaceio.conditions/1</source>
        <translation>Wypisz JSON, schemat surfaceio.conditions/1</translation>
    </message>
    <message>
        <source>Makes and mends volume meshes and shows boundary conditions; info, check and convert take both, too.</source>
        <translation>Tworzy i naprawia siatki objętościowe oraz pokazuje warunki brzegowe; info, check i convert też przyjmują jedno i drugie.</translation>
    </message>
    <message>
        <source>lines</source>
        <translation>odcinki</translation>
    </message>
    <message>
        <source>quadrangles</source>
        <translation>czworokąty</translation>
    </message>
    <message>
        <source>hexahedra</source>
        <translation>sześciościany</translation>
    </message>
    <message>
        <source>prisms</source>
        <translation>graniastosłupy</translation>
    </message>
    <message>
        <source>pyramids</source>
        <translation>ostrosłupy</translation>
    </message>
    <message>
        <source>polygons</source>
        <translation>wielokąty</translation>
    </message>
    <message>
        <source>polyhedra</source>
        <translation>wielościany</translation>
    </message>
    <message>
        <source>line %1: a condition refers to point %2, of %3</source>
        <translation>wiersz %1: warunek odnosi się do punktu %2, z %3</translation>
    </message>
    <message>
        <source>component</source>
        <translation>składowa</translation>
    </message>
    <message>
        <source>least</source>
        <translation>najmniejsza</translation>
    </message>
    <message>
        <source>greatest</source>
        <translation>największa</translation>
    </message>
    <message>
        <source>sum</source>
        <translation>suma</translation>
    </message>
    <message>
        <source>point</source>
        <translation>punkt</translation>
    </message>
    <message>
        <source>value</source>
        <translation>wartość</translation>
    </message>
    <message>
        <source>position (mm)</source>
        <translation>położenie (mm)</translation>
    </message>
    <message>
        <source>different points</source>
        <translation>różne punkty</translation>
    </message>
    <message>
        <source>that are zero</source>
        <translation>w tym zerowe</translation>
    </message>
    <message>
        <source>components</source>
        <translation>składowe</translation>
    </message>
    <message>
        <source>rows</source>
        <translation>wiersze</translation>
    </message>
    <message>
        <source>%1: %2 face rows with a point that their tetrahedron does not have are lost, the first in line %3</source>
        <translation>%1: przepadają wiersze ścian z punktem, którego nie ma ich czworościan: %2, pierwszy w wierszu %3</translation>
    </message>
    <message>
        <source>written</source>
        <translation>zapisano</translation>
    </message>
    <message>
        <source>kind</source>
        <translation>rodzaj</translation>
    </message>
    <message>
        <source>with nodes on edges</source>
        <translation>z węzłami na krawędziach</translation>
    </message>
    <message>
        <source>left out</source>
        <translation>pominięto</translation>
    </message>
    <message>
        <source>flat tetrahedra</source>
        <translation>czworościany płaskie</translation>
    </message>
    <message>
        <source>%1: %2 of %3 tetrahedra have nodes on their edges; only their corners were taken</source>
        <translation>%1: czworościany z węzłami na krawędziach: %2 z %3; wzięto tylko ich narożniki</translation>
    </message>
    <message>
        <source>%1: %2 of %3 tetrahedra have a negative volume in the order of their points; the written file keeps no orientation</source>
        <translation>%1: czworościany o ujemnej objętości przy kolejności swoich punktów: %2 z %3; zapisany plik nie przechowuje orientacji</translation>
    </message>
    <message>
        <source>%1: %2 of %3 tetrahedra are flat in six decimals; are the coordinates in millimetres?</source>
        <translation>%1: czworościany płaskie przy sześciu miejscach po przecinku: %2 z %3; czy współrzędne są w milimetrach?</translation>
    </message>
    <message>
        <source>there is not enough memory for it</source>
        <translation>za mało pamięci</translation>
    </message>
    <message>
        <source>holds no tetrahedra</source>
        <translation>nie zawiera czworościanów</translation>
    </message>
    <message>
        <source>version 2.2 (&quot;gmsh -save -format msh22 -o OUT.msh IN.msh&quot; writes that)</source>
        <translation>wersja 2.2 (zapisuje ją „gmsh -save -format msh22 -o OUT.msh IN.msh”)</translation>
    </message>
    <message>
        <source>three numbers, &quot;2.2 0 8&quot;</source>
        <translation>trzy liczby, „2.2 0 8”</translation>
    </message>
    <message>
        <source>ASCII, &quot;2.2 0 8&quot; (&quot;gmsh -save -format msh22 -o OUT.msh IN.msh&quot; writes that)</source>
        <translation>ASCII, „2.2 0 8” (zapisuje to „gmsh -save -format msh22 -o OUT.msh IN.msh”)</translation>
    </message>
    <message>
        <source>the beginning of a section, such as &quot;$Nodes&quot;</source>
        <translation>początek sekcji, na przykład „$Nodes”</translation>
    </message>
    <message>
        <source>how many there are</source>
        <translation>ile ich jest</translation>
    </message>
    <message>
        <source>one section &quot;$Nodes&quot;</source>
        <translation>jedna sekcja „$Nodes”</translation>
    </message>
    <message>
        <source>two nodes have the number %1</source>
        <translation>dwa węzły mają numer %1</translation>
    </message>
    <message>
        <source>node %1 of %2, its number and three coordinates</source>
        <translation>węzeł %1 z %2, jego numer i trzy współrzędne</translation>
    </message>
    <message>
        <source>&quot;$Nodes&quot; before &quot;$Elements&quot;</source>
        <translation>„$Nodes” przed „$Elements”</translation>
    </message>
    <message>
        <source>one section &quot;$Elements&quot;</source>
        <translation>jedna sekcja „$Elements”</translation>
    </message>
    <message>
        <source>line %1: elements of the type %2 are not known</source>
        <translation>wiersz %1: elementy typu %2 nie są znane</translation>
    </message>
    <message>
        <source>element %1 of %2, its number, type, number of tags, tags and nodes</source>
        <translation>element %1 z %2, jego numer, typ, liczba znaczników, znaczniki i węzły</translation>
    </message>
    <message>
        <source>line %1: %2 are not read, only tetrahedra</source>
        <translation>wiersz %1: %2 nie są czytane, tylko czworościany</translation>
    </message>
    <message>
        <source>line %1: a tetrahedron refers to node %2, which is not there</source>
        <translation>wiersz %1: czworościan odnosi się do węzła %2, którego nie ma</translation>
    </message>
    <message>
        <source>line %1: a tetrahedron has node %2 twice</source>
        <translation>wiersz %1: czworościan ma węzeł %2 dwa razy</translation>
    </message>
    <message>
        <source>expected the suffix .vmesh</source>
        <translation>oczekiwano rozszerzenia .vmesh</translation>
    </message>
    <message>
        <source>there is not enough memory for its face rows</source>
        <translation>za mało pamięci na wiersze ścian</translation>
    </message>
    <message>
        <source>what was written is not what was to be written; is the disk full?</source>
        <translation>zapisano nie to, co miało być zapisane; czy dysk jest pełny?</translation>
    </message>
    <message>
        <source>POINTS, CELLS and CELL_TYPES</source>
        <translation>POINTS, CELLS i CELL_TYPES</translation>
    </message>
    <message>
        <source>&quot;%1&quot; and a number</source>
        <translation>„%1” i liczba</translation>
    </message>
    <message>
        <source>ASCII (write the file as text)</source>
        <translation>ASCII (zapisz plik jako tekst)</translation>
    </message>
    <message>
        <source>POINTS, CELLS, CELL_TYPES, FIELD or METADATA</source>
        <translation>POINTS, CELLS, CELL_TYPES, FIELD lub METADATA</translation>
    </message>
    <message>
        <source>one section POINTS</source>
        <translation>jedna sekcja POINTS</translation>
    </message>
    <message>
        <source>a coordinate of point %1 of %2</source>
        <translation>współrzędna punktu %1 z %2</translation>
    </message>
    <message>
        <source>POINTS before CELLS</source>
        <translation>POINTS przed CELLS</translation>
    </message>
    <message>
        <source>one section CELLS</source>
        <translation>jedna sekcja CELLS</translation>
    </message>
    <message>
        <source>the index of one of %1 points</source>
        <translation>indeks jednego z punktów, których jest %1</translation>
    </message>
    <message>
        <source>the number of points of cell %1 of %2, at most %3</source>
        <translation>liczba punktów komórki %1 z %2, najwyżej %3</translation>
    </message>
    <message>
        <source>line %1: CELLS announces %2 numbers and has %3</source>
        <translation>wiersz %1: CELLS zapowiada liczb: %2, a ma: %3</translation>
    </message>
    <message>
        <source>offset %1 of %2, from %3 to %4</source>
        <translation>przesunięcie %1 z %2, od %3 do %4</translation>
    </message>
    <message>
        <source>%1 as last offset</source>
        <translation>%1 jako ostatnie przesunięcie</translation>
    </message>
    <message>
        <source>CELLS before CELL_TYPES</source>
        <translation>CELLS przed CELL_TYPES</translation>
    </message>
    <message>
        <source>one section CELL_TYPES</source>
        <translation>jedna sekcja CELL_TYPES</translation>
    </message>
    <message>
        <source>the number of cells, %1</source>
        <translation>liczba komórek, %1</translation>
    </message>
    <message>
        <source>the type of cell %1 of %2</source>
        <translation>typ komórki %1 z %2</translation>
    </message>
    <message>
        <source>line %1: cells of the type %2 are not known</source>
        <translation>wiersz %1: komórki typu %2 nie są znane</translation>
    </message>
    <message>
        <source>line %1: the type of cell %2, %3, does not fit its %4 points</source>
        <translation>wiersz %1: typ komórki %2, %3, nie pasuje do liczby jej punktów, %4</translation>
    </message>
    <message>
        <source>cell %1, counted from 0: a tetrahedron has point %2 twice</source>
        <translation>komórka %1, licząc od 0: czworościan ma punkt %2 dwa razy</translation>
    </message>
    <message>
        <source>a value of a field</source>
        <translation>wartość pola</translation>
    </message>
    <message>
        <source>the file ends in line %1: expected %2</source>
        <translation>plik kończy się w wierszu %1; oczekiwano: %2</translation>
    </message>
    <message>
        <source>Print the names as JSON, schema surfaceio.unpack/1</source>
        <translation>Wypisz nazwy jako JSON, schemat surfaceio.unpack/1</translation>
    </message>
    <message>
        <source>Name of the scanner</source>
        <translation>Nazwa skanera</translation>
    </message>
    <message>
        <source>Its serial number</source>
        <translation>Jego numer seryjny</translation>
    </message>
    <message>
        <source>Version of the program that made the scan</source>
        <translation>Wersja programu, który wykonał skan</translation>
    </message>
    <message>
        <source>the name is not UTF-8, and nothing can be opened by it</source>
        <translation>nazwa nie jest w UTF-8 i nie można niczego pod nią otworzyć</translation>
    </message>
    <message>
        <source>check who may read it</source>
        <translation>sprawdź, kto może to czytać</translation>
    </message>
    <message>
        <source>give it a name in UTF-8</source>
        <translation>nadaj nazwę w UTF-8</translation>
    </message>
    <message>
        <source>vertices lose their colours: a file of the kind &quot;%1&quot; holds none</source>
        <translation>wierzchołki tracą kolory: plik rodzaju „%1” ich nie zawiera</translation>
    </message>
    <message>
        <source>facets lose their tags</source>
        <translation>ścianki tracą znaczniki</translation>
    </message>
    <message>
        <source>expected one of %1, found &quot;%2&quot;</source>
        <translation>oczekiwano jednego z %1, znaleziono „%2”</translation>
    </message>
    <message>
        <source>expected {name}, {tag} or {subTag}, found %1</source>
        <translation>oczekiwano {name}, {tag} lub {subTag}, znaleziono %1</translation>
    </message>
    <message>
        <source>is %1; tags are in binary STL</source>
        <translation>to %1; znaczniki są w binarnym STL</translation>
    </message>
    <message>
        <source>the folder cannot be read: </source>
        <translation>nie można odczytać katalogu: </translation>
    </message>
    <message>
        <source>no file fits the pattern</source>
        <translation>żaden plik nie pasuje do wzorca</translation>
    </message>
    <message>
        <source>&quot;%1&quot; stands where a number is expected, and is read as 0</source>
        <translation>„%1” stoi tam, gdzie oczekiwano liczby, i jest czytane jako 0</translation>
    </message>
    <message>
        <source>%1: Value %2 not in range %3 to %4</source>
        <translation>%1: wartość %2 nie mieści się w zakresie od %3 do %4</translation>
    </message>
    <message>
        <source>expected a whole number from 0 to %1</source>
        <translation>oczekiwano liczby całkowitej od 0 do %1</translation>
    </message>
    <message>
        <source>The language of messages and help: German, Polish, or else English. Numbers are the same in every language, and with --json the results and their sentences are in English.</source>
        <translation>Język komunikatów i pomocy: niemiecki, polski albo angielski. Liczby są w każdym języku takie same, a z --json wyniki i zawarte w nich zdania są po angielsku.</translation>
    </message>
    <message>
        <source>Gmsh, for vmesh from</source>
        <translation>Gmsh, dla vmesh from</translation>
    </message>
    <message>
        <source>VTK, for vmesh from</source>
        <translation>VTK, dla vmesh from</translation>
    </message>
    <message>
        <source>has no tags that could colour it</source>
        <translation>nie ma znaczników, które mogłyby dać kolory</translation>
    </message>
    <message>
        <source>png: OUT is such a picture, whatever its suffix</source>
        <translation>png: OUT jest takim obrazem bez względu na rozszerzenie</translation>
    </message>
    <message>
        <source>surfaceio vmesh from FILE -o OUT.vmesh</source>
        <translation>surfaceio vmesh from FILE -o OUT.vmesh</translation>
    </message>
    <message>
        <source>download the file again: a server sent a page in its place, to sign in or to say why not</source>
        <translation>pobierz plik ponownie: serwer przysłał zamiast niego stronę, do logowania lub z odmową</translation>
    </message>
    <message>
        <source>unpack it, and take the mesh out of it</source>
        <translation>rozpakuj je i wyjmij z niego siatkę</translation>
    </message>
    <message>
        <source>write the words in small letters: readers look for &quot;solid&quot; and &quot;vertex&quot;</source>
        <translation>zapisz słowa małymi literami: programy szukają „solid” i „vertex”</translation>
    </message>
    <message>
        <source>end each line of the header with a line feed; what is behind &quot;end_header&quot; has to stay as it is</source>
        <translation>zakończ każdy wiersz nagłówka znakiem nowego wiersza; to, co jest za „end_header”, musi zostać bez zmian</translation>
    </message>
    <message>
        <source>put spaces in place of the tabs in the header</source>
        <translation>zastąp tabulatory w nagłówku spacjami</translation>
    </message>
    <message>
        <source>save it as UTF-8 or ASCII; text editors can, and so can iconv -f UTF-16 -t UTF-8</source>
        <translation>zapisz go jako UTF-8 lub ASCII; potrafią to edytory tekstu, a także iconv -f UTF-16 -t UTF-8</translation>
    </message>
    <message>
        <source>end each line with a line feed; text editors can, and so can tr &apos;\r&apos; &apos;\n&apos;</source>
        <translation>zakończ każdy wiersz znakiem nowego wiersza; potrafią to edytory tekstu, a także tr &apos;\r&apos; &apos;\n&apos;</translation>
    </message>
    <message>
        <source>put spaces in place of the tabs</source>
        <translation>zastąp tabulatory spacjami</translation>
    </message>
    <message>
        <source>a tab between numbers</source>
        <translation>tabulator między liczbami</translation>
    </message>
    <message>
        <source>the content is that of a web page</source>
        <translation>zawartość jest stroną internetową</translation>
    </message>
    <message>
        <source>the content is that of an archive, ZIP or gzip</source>
        <translation>zawartość jest archiwum ZIP lub gzip</translation>
    </message>
    <message>
        <source>a file of a mesher; &quot;surfaceio vmesh from&quot; makes a volume mesh of it</source>
        <translation>plik generatora siatek; „surfaceio vmesh from” zrobi z niego siatkę objętościową</translation>
    </message>
    <message>
        <source>the lines of the header end with carriage returns; expected line feeds</source>
        <translation>wiersze nagłówka kończą się znakami powrotu karetki; oczekiwano znaków nowego wiersza</translation>
    </message>
    <message>
        <source>expected spaces between the words of the header, found a tab: &quot;%1&quot;</source>
        <translation>oczekiwano spacji między słowami nagłówka, znaleziono tabulator: „%1”</translation>
    </message>
    <message>
        <source>begins with &quot;%1&quot;; text is known by &quot;solid&quot; in small letters, so that this counts as binary data</source>
        <translation>zaczyna się od „%1”; tekst poznaje się po „solid” małymi literami, więc uchodzi to za dane binarne</translation>
    </message>
    <message>
        <source>the material library &quot;%1&quot; does not exist; all of the line is taken as one name</source>
        <translation>biblioteka materiałów „%1” nie istnieje; cały wiersz uchodzi za jedną nazwę</translation>
    </message>
    <message>
        <source>a tab between numbers, which only spaces separate</source>
        <translation>tabulator między liczbami, które rozdzielają tylko spacje</translation>
    </message>
    <message>
        <source>is text in UTF-16; only UTF-8, Latin-1 and ASCII are read</source>
        <translation>jest tekstem w UTF-16; czytane są tylko UTF-8, Latin-1 i ASCII</translation>
    </message>
    <message>
        <source>a carriage return inside the line; expected line feeds at the ends of lines</source>
        <translation>powrót karetki wewnątrz wiersza; oczekiwano znaków nowego wiersza na końcach wierszy</translation>
    </message>
    <message>
        <source>the image &quot;%1&quot; does not exist; the options beside &quot;%2&quot; are taken as part of the name</source>
        <translation>obraz „%1” nie istnieje; opcje obok „%2” uchodzą za część nazwy</translation>
    </message>
</context>
</TS>
