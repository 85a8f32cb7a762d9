<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>kxpanel::SeenFile</name>
    <message>
        <source>%1: another program has changed it since; save once more to replace it, or save as another file</source>
        <translation>%1: ein anderes Programm hat die Datei inzwischen geändert; zum Ersetzen nochmals speichern, oder in einer anderen Datei speichern</translation>
    </message>
</context>
<context>
    <name>LineText</name>
    <message>
        <source>not connected</source>
        <translation>nicht verbunden</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>fehlgeschlagen</translation>
    </message>
    <message>
        <source>connecting</source>
        <translation>wird verbunden</translation>
    </message>
    <message>
        <source>connected</source>
        <translation>verbunden</translation>
    </message>
    <message>
        <source>faulty</source>
        <translation>gestört</translation>
    </message>
    <message>
        <source>lost, reopening</source>
        <translation>verloren, wird wieder geöffnet</translation>
    </message>
</context>
<context>
    <name>ShortcutList</name>
    <message>
        <source>Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>What they do</source>
        <translation>Was sie tun</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
</context>
<context>
    <name>TrendActions</name>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Live</source>
        <translation>Live</translation>
    </message>
    <message>
        <source>Follow the newest values, or stand still</source>
        <translation>Den neuesten Werten folgen oder stehen bleiben</translation>
    </message>
    <message>
        <source>Now</source>
        <translation>Jetzt</translation>
    </message>
    <message>
        <source>Follow the newest values, all of them shown</source>
        <translation>Den neuesten Werten folgen und alle zeigen</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Show half of the time</source>
        <translation>Die halbe Zeitspanne zeigen</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Show twice the time</source>
        <translation>Die doppelte Zeitspanne zeigen</translation>
    </message>
    <message>
        <source>Earlier</source>
        <translation>Früher</translation>
    </message>
    <message>
        <source>Go back by a quarter of the window</source>
        <translation>Um ein Viertel des Fensters zurückgehen</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Später</translation>
    </message>
    <message>
        <source>Go on by a quarter of the window</source>
        <translation>Um ein Viertel des Fensters weitergehen</translation>
    </message>
    <message>
        <source>Fit values</source>
        <translation>Werte einpassen</translation>
    </message>
    <message>
        <source>Show all values that there are in the window</source>
        <translation>Alle vorhandenen Werte im Fenster zeigen</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Einpassen</translation>
    </message>
    <message>
        <source>Open…</source>
        <translation>Öffnen …</translation>
    </message>
    <message>
        <source>Picture…</source>
        <translation>Bild …</translation>
    </message>
    <message>
        <source>Values…</source>
        <translation>Werte …</translation>
    </message>
    <message>
        <source>Cursor 1</source>
        <translation>Cursor 1</translation>
    </message>
    <message>
        <source>Set it where the mouse is, else in the middle</source>
        <translation>Dort setzen, wo die Maus ist, sonst in die Mitte</translation>
    </message>
    <message>
        <source>Cursor 2</source>
        <translation>Cursor 2</translation>
    </message>
    <message>
        <source>Cursor back</source>
        <translation>Cursor zurück</translation>
    </message>
    <message>
        <source>Move the cursor that was set last by a pixel</source>
        <translation>Den zuletzt gesetzten Cursor um ein Pixel verschieben</translation>
    </message>
    <message>
        <source>Cursor on</source>
        <translation>Cursor weiter</translation>
    </message>
    <message>
        <source>No cursors</source>
        <translation>Keine Cursor</translation>
    </message>
    <message>
        <source>Take the cursors away</source>
        <translation>Die Cursor wegnehmen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Take the values selected below out of the plot</source>
        <translation>Die unten ausgewählten Werte aus der Kurve nehmen</translation>
    </message>
    <message>
        <source>Open recording…</source>
        <translation>Aufzeichnung öffnen …</translation>
    </message>
    <message>
        <source>Show a file that was recorded, *.csv or *.sqlite</source>
        <translation>Eine aufgezeichnete Datei zeigen, *.csv oder *.sqlite</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufzeichnung</translation>
    </message>
    <message>
        <source>Show the whole time of the recording that is opened</source>
        <translation>Die ganze Zeit der geöffneten Aufzeichnung zeigen</translation>
    </message>
    <message>
        <source>Save picture…</source>
        <translation>Bild speichern …</translation>
    </message>
    <message>
        <source>Save the plot as *.png or *.svg</source>
        <translation>Die Kurven als *.png oder *.svg speichern</translation>
    </message>
    <message>
        <source>Save values…</source>
        <translation>Werte speichern …</translation>
    </message>
    <message>
        <source>Save what is shown as a recording, *.csv or *.sqlite, in UTC</source>
        <translation>Das Gezeigte als Aufzeichnung speichern, *.csv oder *.sqlite, in UTC</translation>
    </message>
</context>
<context>
    <name>kxpanel</name>
    <message>
        <source>simulated controller</source>
        <translation>simulierte Steuerung</translation>
    </message>
</context>
<context>
    <name>kxpanel::AddLine</name>
    <message>
        <source>%1 at station %2</source>
        <translation>%1 an Station %2</translation>
    </message>
    <message numerus="yes">
        <source>%1, %n values</source>
        <translation>
            <numerusform>%1, %n Wert</numerusform>
            <numerusform>%1, %n Werte</numerusform>
        </translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Add an address: D100, X17, D100:4@2, D100/float*0.1,unit=bar</source>
        <translation>Adresse hinzufügen: D100, X17, D100:4@2, D100/float*0.1,unit=bar</translation>
    </message>
    <message>
        <source>TYPE and number, then :COUNT, @STATION and /FORMAT (Insert)</source>
        <translation>TYP und Nummer, dann :ANZAHL, @STATION und /FORMAT (Einfg)</translation>
    </message>
    <message>
        <source>Address to add</source>
        <translation>Adresse zum Hinzufügen</translation>
    </message>
    <message>
        <source>Station of addresses that name none</source>
        <translation>Station der Adressen, die keine nennen</translation>
    </message>
    <message>
        <source>Station of addresses that name none, 1 to 247</source>
        <translation>Station der Adressen, die keine nennen, 1 bis 247</translation>
    </message>
    <message>
        <source>Add the address to the list (Enter)</source>
        <translation>Die Adresse zur Liste hinzufügen (Eingabe)</translation>
    </message>
    <message>
        <source>&amp;Station</source>
        <translation>&amp;Station</translation>
    </message>
</context>
<context>
    <name>kxpanel::Cell</name>
    <message>
        <source>ok</source>
        <translation>gut</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>geändert</translation>
    </message>
    <message>
        <source>never read</source>
        <translation>nie gelesen</translation>
    </message>
    <message>
        <source>writing…</source>
        <translation>wird geschrieben …</translation>
    </message>
    <message>
        <source>written</source>
        <translation>geschrieben</translation>
    </message>
    <message>
        <source>not written</source>
        <translation>nicht geschrieben</translation>
    </message>
    <message>
        <source>not confirmed</source>
        <translation>nicht bestätigt</translation>
    </message>
    <message>
        <source>refused</source>
        <translation>abgelehnt</translation>
    </message>
    <message>
        <source>no answer</source>
        <translation>keine Antwort</translation>
    </message>
    <message>
        <source>%1 h</source>
        <translation>%1 h</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>no line</source>
        <translation>getrennt</translation>
    </message>
</context>
<context>
    <name>kxpanel::Cells</name>
    <message>
        <source>one column of values is needed</source>
        <translation>es muss eine einzige Spalte mit Werten sein</translation>
    </message>
    <message>
        <source>row %1 is empty</source>
        <translation>Zeile %1 ist leer</translation>
    </message>
    <message>
        <source>the point in %1 may stand for thousands; write %2 or %3 in the spreadsheet</source>
        <translation>der Punkt in %1 kann Tausender trennen; in der Tabellenkalkulation %2 oder %3 schreiben</translation>
    </message>
    <message>
        <source>row %1: a quote is not closed</source>
        <translation>Zeile %1: ein Anführungszeichen wird nicht geschlossen</translation>
    </message>
    <message>
        <source>%1 and %2 are both addresses; put 'name' and 'address' above the columns</source>
        <translation>%1 und %2 sind beide Adressen; über die Spalten gehören „name“ und „address“</translation>
    </message>
    <message>
        <source>row %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>no addresses</source>
        <translation>keine Adressen</translation>
    </message>
</context>
<context>
    <name>kxpanel::ClosingQuestion</name>
    <message>
        <source>A write, a transfer or a search is under way.</source>
        <translation>Gerade wird geschrieben, übertragen oder gesucht.</translation>
    </message>
    <message>
        <source>Closing ends it half-way: a part may be stored in the controller.</source>
        <translation>Schließen bricht das ab: Ein Teil kann schon in der Steuerung stehen.</translation>
    </message>
    <message>
        <source>End it and close</source>
        <translation>Abbrechen und schließen</translation>
    </message>
</context>
<context>
    <name>kxpanel::ConnectionBar</name>
    <message>
        <source>&amp;Connect</source>
        <translation>&amp;Verbinden</translation>
    </message>
    <message>
        <source>&amp;Find stations</source>
        <translation>Stationen s&amp;uchen</translation>
    </message>
    <message>
        <source>Ask all stations of the line whether they are there (%1)</source>
        <translation>Alle Stationen der Leitung fragen, ob sie da sind (%1)</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>Abb&amp;rechen</translation>
    </message>
    <message>
        <source>Dis&amp;connect</source>
        <translation>&amp;Trennen</translation>
    </message>
</context>
<context>
    <name>kxpanel::CyclePicture</name>
    <message>
        <source>Requests on the line</source>
        <translation>Anfragen auf der Leitung</translation>
    </message>
    <message>
        <source>Each request as it ran, a row for each station. Wheel or + and - zoom, drag or Page Up and Page Down move, Left and Right select, Space pauses, End shows the latest.</source>
        <translation>Jede Anfrage, wie sie lief, eine Zeile je Station. Mausrad oder + und - zoomen, Ziehen oder Bild auf und Bild ab verschieben, Links und Rechts wählen aus, Leertaste hält an, Ende zeigt das Neueste.</translation>
    </message>
    <message>
        <source>No requests yet</source>
        <translation>Noch keine Anfragen</translation>
    </message>
</context>
<context>
    <name>kxpanel::CycleWords</name>
    <message>
        <source>sent in %1</source>
        <translation>gesendet in %1</translation>
    </message>
    <message>
        <source>waited %1</source>
        <translation>gewartet %1</translation>
    </message>
    <message>
        <source>answered after %1</source>
        <translation>beantwortet nach %1</translation>
    </message>
    <message>
        <source>received in %1</source>
        <translation>empfangen in %1</translation>
    </message>
    <message>
        <source>then %1 of silence</source>
        <translation>dann %1 Ruhe</translation>
    </message>
    <message>
        <source>%1, station %2: %3</source>
        <translation>%1, Station %2: %3</translation>
    </message>
    <message>
        <source>sent before</source>
        <translation>schon einmal gesendet</translation>
    </message>
    <message>
        <source>late</source>
        <translation>verspätet</translation>
    </message>
    <message>
        <source>Line used %1 %: sent %2 %, waited %3 %, received %4 %, silence %5 %</source>
        <translation>Leitung zu %1 % belegt: gesendet %2 %, gewartet %3 %, empfangen %4 %, Ruhe %5 %</translation>
    </message>
    <message numerus="yes">
        <source>%n byte(s) came</source>
        <translation>
            <numerusform>%n Byte kam</numerusform>
            <numerusform>%n Bytes kamen</numerusform>
        </translation>
    </message>
    <message>
        <source>Waited for replies %1 %, silence %2 %</source>
        <translation>Auf Antworten gewartet %1 %, Ruhe %2 %</translation>
    </message>
</context>
<context>
    <name>kxpanel::DownloadBar</name>
    <message>
        <source>station %1</source>
        <translation>Station %1</translation>
    </message>
    <message>
        <source>stations %1</source>
        <translation>Stationen %1</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>Abb&amp;rechen</translation>
    </message>
    <message>
        <source>&amp;Download</source>
        <translation>&amp;Senden</translation>
    </message>
    <message>
        <source>Send the values to the controller</source>
        <translation>Die Werte an die Steuerung senden</translation>
    </message>
    <message>
        <source>Send nothing (Esc)</source>
        <translation>Nichts senden (Esc)</translation>
    </message>
    <message numerus="yes">
        <source>Send %n value(s) to %1? They replace those in the controller.</source>
        <translation>
            <numerusform>%n Wert an %1 senden? Er ersetzt den in der Steuerung.</numerusform>
            <numerusform>%n Werte an %1 senden? Sie ersetzen die in der Steuerung.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 What was read from it before is not saved.</source>
        <translation>%1 Was zuvor daraus gelesen wurde, ist nicht gespeichert.</translation>
    </message>
</context>
<context>
    <name>kxpanel::EditTag</name>
    <message>
        <source>edit of %1</source>
        <translation>Änderung von %1</translation>
    </message>
</context>
<context>
    <name>kxpanel::ExchangeWords</name>
    <message>
        <source>poll</source>
        <translation>Abfrage</translation>
    </message>
    <message>
        <source>read</source>
        <translation>Lesen</translation>
    </message>
    <message>
        <source>write</source>
        <translation>Schreiben</translation>
    </message>
    <message>
        <source>recipe write</source>
        <translation>Rezept schreiben</translation>
    </message>
    <message>
        <source>recipe read</source>
        <translation>Rezept lesen</translation>
    </message>
    <message numerus="yes">
        <source>%n byte(s)</source>
        <translation>
            <numerusform>%n Byte</numerusform>
            <numerusform>%n Byte</numerusform>
        </translation>
    </message>
    <message>
        <source>confirmed</source>
        <translation>bestätigt</translation>
    </message>
    <message>
        <source>%1 ms</source>
        <translation>%1 ms</translation>
    </message>
</context>
<context>
    <name>kxpanel::FilterBar</name>
    <message>
        <source>All stations</source>
        <translation>Alle Stationen</translation>
    </message>
    <message>
        <source>Station</source>
        <translation>Station</translation>
    </message>
    <message>
        <source>Show the exchanges of one station</source>
        <translation>Den Austausch mit einer Station zeigen</translation>
    </message>
    <message>
        <source>All types</source>
        <translation>Alle Arten</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Show requests of one type</source>
        <translation>Anfragen einer Art zeigen</translation>
    </message>
    <message>
        <source>All outcomes</source>
        <translation>Alle Ergebnisse</translation>
    </message>
    <message>
        <source>Accepted</source>
        <translation>Angenommen</translation>
    </message>
    <message>
        <source>Not accepted</source>
        <translation>Nicht angenommen</translation>
    </message>
    <message>
        <source>Repeated</source>
        <translation>Wiederholt</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fehlgeschlagen</translation>
    </message>
    <message>
        <source>Outcome</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Show the exchanges that ended so</source>
        <translation>Den Austausch zeigen, der so endete</translation>
    </message>
    <message>
        <source>Request, such as D100</source>
        <translation>Anfrage, etwa D100</translation>
    </message>
    <message>
        <source>Text in the request</source>
        <translation>Text in der Anfrage</translation>
    </message>
    <message>
        <source>Show requests with this text, such as D100 or write</source>
        <translation>Anfragen mit diesem Text zeigen, etwa D100 oder write</translation>
    </message>
    <message>
        <source>Station %1</source>
        <translation>Station %1</translation>
    </message>
</context>
<context>
    <name>kxpanel::FilterLine</name>
    <message>
        <source>All states</source>
        <translation>Alle Zustände</translation>
    </message>
    <message>
        <source>Not answered, refused, not written</source>
        <translation>Unbeantwortet, abgelehnt, nicht geschrieben</translation>
    </message>
    <message>
        <source>Changed or written now</source>
        <translation>Eben geändert oder geschrieben</translation>
    </message>
    <message>
        <source>Never read</source>
        <translation>Nie gelesen</translation>
    </message>
    <message>
        <source>Filter by name, address or comment</source>
        <translation>Nach Name, Adresse oder Kommentar filtern</translation>
    </message>
    <message>
        <source>Words that a row must have (Ctrl+F; Esc shows all)</source>
        <translation>Wörter, die eine Zeile haben muss (Strg+F; Esc zeigt alle)</translation>
    </message>
    <message>
        <source>Rows in this state only</source>
        <translation>Nur Zeilen in diesem Zustand</translation>
    </message>
    <message>
        <source>Filter by state</source>
        <translation>Nach Zustand filtern</translation>
    </message>
    <message>
        <source>All types</source>
        <translation>Alle Arten</translation>
    </message>
    <message>
        <source>Rows of this register type only</source>
        <translation>Nur Zeilen dieser Registerart</translation>
    </message>
    <message>
        <source>Filter by register type</source>
        <translation>Nach Registerart filtern</translation>
    </message>
    <message numerus="yes">
        <source>%n values</source>
        <translation>
            <numerusform>%n Wert</numerusform>
            <numerusform>%n Werte</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n values</source>
        <translation>
            <numerusform>%1 von %n Wert</numerusform>
            <numerusform>%1 von %n Werten</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::FrameDetails</name>
    <message>
        <source>No reply until %1</source>
        <translation>Keine Antwort bis %1</translation>
    </message>
    <message numerus="yes">
        <source>Reply, over at %1, %n byte(s)</source>
        <translation>
            <numerusform>Antwort, zu Ende um %1, %n Byte</numerusform>
            <numerusform>Antwort, zu Ende um %1, %n Byte</numerusform>
        </translation>
    </message>
    <message>
        <source>Station %1: %2</source>
        <translation>Station %1: %2</translation>
    </message>
    <message>
        <source>The reply began %1 after the request.</source>
        <translation>Die Antwort begann %1 nach der Anfrage.</translation>
    </message>
    <message numerus="yes">
        <source>Request, sent %1, %n byte(s)</source>
        <translation>
            <numerusform>Anfrage, gesendet um %1, %n Byte</numerusform>
            <numerusform>Anfrage, gesendet um %1, %n Byte</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Before it came %n byte(s): %1</source>
        <translation>
            <numerusform>Davor kam %n Byte: %1</numerusform>
            <numerusform>Davor kamen %n Byte: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Behind it came %n byte(s): %1</source>
        <translation>
            <numerusform>Dahinter kam %n Byte: %1</numerusform>
            <numerusform>Dahinter kamen %n Byte: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Instead came %n byte(s): %1</source>
        <translation>
            <numerusform>Stattdessen kam %n Byte: %1</numerusform>
            <numerusform>Stattdessen kamen %n Byte: %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::FramesModel</name>
    <message>
        <source>%1 ms</source>
        <translation>%1 ms</translation>
    </message>
    <message>
        <source>When the request was sent, in local time</source>
        <translation>Wann die Anfrage gesendet wurde, in Ortszeit</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Number of the station that was asked</source>
        <translation>Nummer der gefragten Station</translation>
    </message>
    <message>
        <source>Station</source>
        <translation>Station</translation>
    </message>
    <message>
        <source>What the request was for</source>
        <translation>Wozu die Anfrage diente</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Addresses asked for or written, with the values written</source>
        <translation>Gefragte oder geschriebene Adressen, mit den geschriebenen Werten</translation>
    </message>
    <message>
        <source>Request</source>
        <translation>Anfrage</translation>
    </message>
    <message>
        <source>What came back; values in the order of their addresses</source>
        <translation>Was zurückkam; Werte in der Reihenfolge ihrer Adressen</translation>
    </message>
    <message>
        <source>Reply</source>
        <translation>Antwort</translation>
    </message>
    <message>
        <source>What came back and what the driver made of it</source>
        <translation>Was zurückkam und was der Treiber daraus machte</translation>
    </message>
    <message>
        <source>Outcome</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Milliseconds from the request's last character to the reply's first</source>
        <translation>Millisekunden vom letzten Zeichen der Anfrage bis zum ersten der Antwort</translation>
    </message>
    <message>
        <source>Reply after</source>
        <translation>Antwort nach</translation>
    </message>
    <message>
        <source>Milliseconds from the request to the end of the exchange</source>
        <translation>Millisekunden von der Anfrage bis zum Ende des Austauschs</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
</context>
<context>
    <name>kxpanel::FramesPage</name>
    <message>
        <source>Frames</source>
        <translation>Telegramme</translation>
    </message>
    <message>
        <source>Select an exchange to see its fields and bytes.</source>
        <translation>Einen Austausch auswählen, um seine Felder und Bytes zu sehen.</translation>
    </message>
    <message>
        <source>Fields and bytes of the selected exchange</source>
        <translation>Felder und Bytes des ausgewählten Austauschs</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Type what the request must contain</source>
        <translation>Eingeben, was die Anfrage enthalten muss</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Keep the rows as they are; what comes waits</source>
        <translation>Die Zeilen lassen, wie sie sind; was kommt, wartet</translation>
    </message>
    <message>
        <source>Save...</source>
        <translation>Speichern ...</translation>
    </message>
    <message>
        <source>Save the exchanges shown as text, JSON lines or a capture</source>
        <translation>Den gezeigten Austausch als Text, JSON-Zeilen oder Mitschnitt speichern</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Forget all exchanges</source>
        <translation>Allen Austausch vergessen</translation>
    </message>
    <message>
        <source>Exchanges</source>
        <translation>Austausch</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n exchanges shown</source>
        <translation>
            <numerusform>%1 von %n Telegrammpaar gezeigt</numerusform>
            <numerusform>%1 von %n Telegrammpaaren gezeigt</numerusform>
        </translation>
    </message>
    <message>
        <source>Save frames</source>
        <translation>Telegramme speichern</translation>
    </message>
    <message>
        <source>Text (*.txt);;JSON lines (*.jsonl);;Capture (*.pcap)</source>
        <translation>Text (*.txt);;JSON-Zeilen (*.jsonl);;Mitschnitt (*.pcap)</translation>
    </message>
    <message numerus="yes">
        <source>%n exchange(s) saved in %1</source>
        <translation>
            <numerusform>%n Telegrammpaar in %1 gespeichert</numerusform>
            <numerusform>%n Telegrammpaare in %1 gespeichert</numerusform>
        </translation>
    </message>
    <message>
        <source>; paused, %1 more wait</source>
        <translation>; angehalten, %1 weitere warten</translation>
    </message>
    <message>
        <source>; %1 had no room and were thrown away</source>
        <translation>; für %1 war kein Platz, sie wurden verworfen</translation>
    </message>
</context>
<context>
    <name>kxpanel::HealthPage</name>
    <message>
        <source>Health</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Begin all counts anew</source>
        <translation>Alle Zähler neu beginnen</translation>
    </message>
    <message>
        <source>What came without being asked for, or too late. None of it reached the driver.</source>
        <translation>Was ungefragt oder zu spät kam. Nichts davon erreichte den Treiber.</translation>
    </message>
    <message>
        <source>Stations</source>
        <translation>Stationen</translation>
    </message>
    <message>
        <source>Counts since %1</source>
        <translation>Zähler seit %1</translation>
    </message>
    <message>
        <source>Reply times of station %1</source>
        <translation>Antwortzeiten der Station %1</translation>
    </message>
    <message>
        <source>Reply times</source>
        <translation>Antwortzeiten</translation>
    </message>
    <message>
        <source>Line: %1</source>
        <translation>Leitung: %1</translation>
    </message>
    <message>
        <source>nothing was thrown away</source>
        <translation>nichts wurde verworfen</translation>
    </message>
</context>
<context>
    <name>kxpanel::HealthWords</name>
    <message>
        <source>no reply until the time-out</source>
        <translation>keine Antwort bis zum Ablauf der Wartezeit</translation>
    </message>
    <message>
        <source>reply cut short</source>
        <translation>Antwort abgebrochen</translation>
    </message>
    <message>
        <source>damaged reply</source>
        <translation>beschädigte Antwort</translation>
    </message>
    <message>
        <source>refused by the station</source>
        <translation>von der Station abgelehnt</translation>
    </message>
    <message>
        <source>reply with a wrong byte count</source>
        <translation>Antwort mit falscher Bytezahl</translation>
    </message>
    <message>
        <source>only replies of other requests</source>
        <translation>nur Antworten auf andere Anfragen</translation>
    </message>
    <message>
        <source>line lost meanwhile</source>
        <translation>Leitung inzwischen verloren</translation>
    </message>
    <message>
        <source>broadcast</source>
        <translation>Rundruf</translation>
    </message>
    <message>
        <source>good reply that the driver did not take</source>
        <translation>gute Antwort, die der Treiber nicht nahm</translation>
    </message>
    <message>
        <source>line never silent</source>
        <translation>Leitung nie in Ruhe</translation>
    </message>
    <message>
        <source>Station</source>
        <translation>Station</translation>
    </message>
    <message>
        <source>Number of the station</source>
        <translation>Nummer der Station</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Whether the station answers now</source>
        <translation>Ob die Station jetzt antwortet</translation>
    </message>
    <message>
        <source>Requests</source>
        <translation>Anfragen</translation>
    </message>
    <message>
        <source>Requests that are over, each try counted</source>
        <translation>Beendete Anfragen, jeder Versuch gezählt</translation>
    </message>
    <message>
        <source>Accepted</source>
        <translation>Angenommen</translation>
    </message>
    <message>
        <source>Requests whose reply the driver took</source>
        <translation>Anfragen, deren Antwort der Treiber nahm</translation>
    </message>
    <message>
        <source>Repeated</source>
        <translation>Wiederholt</translation>
    </message>
    <message>
        <source>Requests that were sent once more</source>
        <translation>Anfragen, die noch einmal gesendet wurden</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Requests that failed for good</source>
        <translation>Anfragen, die endgültig fehlschlugen</translation>
    </message>
    <message>
        <source>No reply</source>
        <translation>Ohne Antwort</translation>
    </message>
    <message>
        <source>Repeated or failed: nothing came</source>
        <translation>Wiederholt oder fehlgeschlagen: nichts kam</translation>
    </message>
    <message>
        <source>Cut short</source>
        <translation>Zu kurz</translation>
    </message>
    <message>
        <source>Repeated or failed: too few bytes came</source>
        <translation>Wiederholt oder fehlgeschlagen: zu wenige Bytes kamen</translation>
    </message>
    <message>
        <source>Damaged</source>
        <translation>Beschädigt</translation>
    </message>
    <message>
        <source>Repeated or failed: no frame in the bytes</source>
        <translation>Wiederholt oder fehlgeschlagen: kein Telegramm in den Bytes</translation>
    </message>
    <message>
        <source>Refused</source>
        <translation>Abgelehnt</translation>
    </message>
    <message>
        <source>Repeated or failed: the station refused</source>
        <translation>Wiederholt oder fehlgeschlagen: die Station lehnte ab</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Andere</translation>
    </message>
    <message>
        <source>Repeated or failed for any other reason; point at a station to see which</source>
        <translation>Wiederholt oder fehlgeschlagen aus anderem Grund; auf eine Station zeigen, um ihn zu sehen</translation>
    </message>
    <message>
        <source>Median</source>
        <translation>Median</translation>
    </message>
    <message>
        <source>Half of the replies began within this time, in milliseconds from the end of the request</source>
        <translation>Die Hälfte der Antworten begann innerhalb dieser Zeit, in Millisekunden ab dem Ende der Anfrage</translation>
    </message>
    <message>
        <source>99 %</source>
        <translation>99 %</translation>
    </message>
    <message>
        <source>99 of 100 replies began within this time, in milliseconds from the end of the request</source>
        <translation>99 von 100 Antworten begannen innerhalb dieser Zeit, in Millisekunden ab dem Ende der Anfrage</translation>
    </message>
    <message>
        <source>Longest</source>
        <translation>Längste</translation>
    </message>
    <message>
        <source>The slowest reply, in milliseconds from the end of the request to its first character</source>
        <translation>Die langsamste Antwort, in Millisekunden vom Ende der Anfrage bis zu ihrem ersten Zeichen</translation>
    </message>
    <message>
        <source>silent</source>
        <translation>stumm</translation>
    </message>
    <message>
        <source>answers</source>
        <translation>antwortet</translation>
    </message>
    <message>
        <source>no reply yet</source>
        <translation>noch keine Antwort</translation>
    </message>
    <message>
        <source>Station %1: %2 accepted, %3 repeated, %4 failed</source>
        <translation>Station %1: %2 angenommen, %3 wiederholt, %4 fehlgeschlagen</translation>
    </message>
    <message>
        <source>not whole, so not sent: %1</source>
        <translation>nicht vollständig, daher nicht gesendet: %1</translation>
    </message>
    <message>
        <source>answered last at %1</source>
        <translation>zuletzt geantwortet um %1</translation>
    </message>
    <message numerus="yes">
        <source>%n repl(ies) of other requests</source>
        <translation>
            <numerusform>%n Antwort auf andere Anfragen</numerusform>
            <numerusform>%n Antworten auf andere Anfragen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n late repl(ies)</source>
        <translation>
            <numerusform>%n verspätete Antwort</numerusform>
            <numerusform>%n verspätete Antworten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n duplicate(s)</source>
        <translation>
            <numerusform>%n Doppel</numerusform>
            <numerusform>%n Doppel</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n echo(es)</source>
        <translation>
            <numerusform>%n Echo</numerusform>
            <numerusform>%n Echos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n byte(s) in no frame</source>
        <translation>
            <numerusform>%n Byte in keinem Telegramm</numerusform>
            <numerusform>%n Byte in keinem Telegramm</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n request(s) held back for a late reply</source>
        <translation>
            <numerusform>%n Anfrage wegen einer verspäteten Antwort zurückgehalten</numerusform>
            <numerusform>%n Anfragen wegen einer verspäteten Antwort zurückgehalten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>line opened again %n time(s)</source>
        <translation>
            <numerusform>Leitung %n-mal wieder geöffnet</numerusform>
            <numerusform>Leitung %n-mal wieder geöffnet</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n interval(s) missed</source>
        <translation>
            <numerusform>%n Abstand versäumt</numerusform>
            <numerusform>%n Abstände versäumt</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::HistogramView</name>
    <message>
        <source>%1 ms</source>
        <translation>%1 ms</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>Reply times</source>
        <translation>Antwortzeiten</translation>
    </message>
    <message>
        <source>Replies by the time from the end of the request to their first character. Left and Right select a bar.</source>
        <translation>Antworten nach der Zeit vom Ende der Anfrage bis zu ihrem ersten Zeichen. Links und Rechts wählen einen Balken.</translation>
    </message>
    <message numerus="yes">
        <source>%1: %n replies, median %2, 99 % within %3</source>
        <translation>
            <numerusform>%1: %n Antwort, Median %2, 99 % innerhalb %3</numerusform>
            <numerusform>%1: %n Antworten, Median %2, 99 % innerhalb %3</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 to %2: %n replies, %3 %</source>
        <translation>
            <numerusform>%1 bis %2: %n Antwort, %3 %</numerusform>
            <numerusform>%1 bis %2: %n Antworten, %3 %</numerusform>
        </translation>
    </message>
    <message>
        <source>No replies yet</source>
        <translation>Noch keine Antworten</translation>
    </message>
    <message>
        <source>median %1</source>
        <translation>Median %1</translation>
    </message>
    <message>
        <source>99 % within %1</source>
        <translation>99 % innerhalb %1</translation>
    </message>
</context>
<context>
    <name>kxpanel::InsertTags</name>
    <message>
        <source>adding of values</source>
        <translation>Hinzufügen von Werten</translation>
    </message>
</context>
<context>
    <name>kxpanel::LimitCurve</name>
    <message>
        <source>Predicted time of a cycle over the longest request</source>
        <translation>Vorhergesagte Zykluszeit über der längsten Anfrage</translation>
    </message>
    <message>
        <source>Predicted time of a cycle in milliseconds over the longest request in registers. A click chooses a limit.</source>
        <translation>Vorhergesagte Zykluszeit in Millisekunden über der längsten Anfrage in Registern. Ein Klick wählt eine Grenze.</translation>
    </message>
    <message>
        <source>Nothing is watched</source>
        <translation>Nichts wird beobachtet</translation>
    </message>
    <message>
        <source>measured %1</source>
        <translation>gemessen %1</translation>
    </message>
    <message>
        <source>per cycle, by registers of the longest request</source>
        <translation>je Zyklus, nach Registern der längsten Anfrage</translation>
    </message>
</context>
<context>
    <name>kxpanel::LimitPanel</name>
    <message>
        <source>Lon&amp;gest request</source>
        <translation>Län&amp;gste Anfrage</translation>
    </message>
    <message>
        <source> registers</source>
        <translation> Register</translation>
    </message>
    <message>
        <source> register</source>
        <translation> Register</translation>
    </message>
    <message>
        <source>In force: automatic, %1 registers at most</source>
        <translation>Es gilt: automatisch, höchstens %1 Register</translation>
    </message>
    <message>
        <source>The longest request in registers, or 16 times as many bits. Nothing is changed before it is applied.</source>
        <translation>Die längste Anfrage in Registern, oder 16-mal so viele Bits. Vor dem Anwenden ändert sich nichts.</translation>
    </message>
    <message>
        <source>Longest request in registers</source>
        <translation>Längste Anfrage in Registern</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>An&amp;wenden</translation>
    </message>
    <message>
        <source>Polls with requests of this length at most from now on (Alt+A)</source>
        <translation>Fragt von jetzt an mit Anfragen höchstens dieser Länge ab (Alt+W)</translation>
    </message>
    <message>
        <source>A&amp;utomatic</source>
        <translation>A&amp;utomatisch</translation>
    </message>
    <message>
        <source>Polls with requests as long as takes the least time from now on (Alt+U)</source>
        <translation>Fragt von jetzt an mit der Länge ab, die am wenigsten Zeit braucht (Alt+U)</translation>
    </message>
    <message>
        <source>Measured: %1 per cycle</source>
        <translation>Gemessen: %1 je Zyklus</translation>
    </message>
    <message>
        <source>Measured: nothing yet</source>
        <translation>Gemessen: noch nichts</translation>
    </message>
    <message numerus="yes">
        <source>In force: %n register(s) at most</source>
        <translation>
            <numerusform>Es gilt: höchstens %n Register</numerusform>
            <numerusform>Es gilt: höchstens %n Register</numerusform>
        </translation>
    </message>
    <message>
        <source>In force: no line is open</source>
        <translation>Es gilt: keine Leitung ist offen</translation>
    </message>
    <message>
        <source>Apply the &amp;best: %1</source>
        <translation>Bes&amp;te anwenden: %1</translation>
    </message>
    <message>
        <source>Apply the &amp;best</source>
        <translation>Bes&amp;te anwenden</translation>
    </message>
    <message>
        <source>; assumed, until stations answer, that they take %1 for each reply</source>
        <translation>; angenommen, bis Stationen antworten, dass sie %1 für jede Antwort brauchen</translation>
    </message>
    <message>
        <source>The limit with the shortest cycle: of equal ones that which leaves the line the most time, then the lowest (Alt+B)</source>
        <translation>Die Grenze mit dem kürzesten Zyklus: von gleichen die, bei der die Leitung am längsten frei bleibt, dann die niedrigste (Alt+T)</translation>
    </message>
    <message numerus="yes">
        <source>Predicted: %1 per cycle, %n requests</source>
        <translation>
            <numerusform>Vorhergesagt: %1 je Zyklus, %n Anfrage</numerusform>
            <numerusform>Vorhergesagt: %1 je Zyklus, %n Anfragen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Predicted: %1 per cycle, %n requests, line used %2 %</source>
        <translation>
            <numerusform>Vorhergesagt: %1 je Zyklus, %n Anfrage, Leitung zu %2 % belegt</numerusform>
            <numerusform>Vorhergesagt: %1 je Zyklus, %n Anfragen, Leitung zu %2 % belegt</numerusform>
        </translation>
    </message>
    <message>
        <source>Predicted: nothing yet</source>
        <translation>Vorhergesagt: noch nichts</translation>
    </message>
    <message numerus="yes">
        <source>; without %n silent station(s): %1</source>
        <translation>
            <numerusform>; ohne %n stumme Station: %1</numerusform>
            <numerusform>; ohne %n stumme Stationen: %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::LineFields</name>
    <message>
        <source>Serial port</source>
        <translation>Serielle Schnittstelle</translation>
    </message>
    <message>
        <source>Gateway</source>
        <translation>Gateway</translation>
    </message>
    <message>
        <source>Simulated</source>
        <translation>Simuliert</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Leitung</translation>
    </message>
    <message>
        <source>What the controllers are reached by; simulated ones are inside the program</source>
        <translation>Worüber die Steuerungen erreicht werden; simulierte sind im Programm</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Schnittstelle</translation>
    </message>
    <message>
        <source>Serial port, such as /dev/ttyUSB0</source>
        <translation>Serielle Schnittstelle, etwa /dev/ttyUSB0</translation>
    </message>
    <message>
        <source>choose a port</source>
        <translation>Schnittstelle wählen</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Baudrate</translation>
    </message>
    <message>
        <source>Bits per second</source>
        <translation>Bit je Sekunde</translation>
    </message>
    <message>
        <source>no parity</source>
        <translation>keine Parität</translation>
    </message>
    <message>
        <source>even parity</source>
        <translation>gerade Parität</translation>
    </message>
    <message>
        <source>odd parity</source>
        <translation>ungerade Parität</translation>
    </message>
    <message>
        <source>Parity</source>
        <translation>Parität</translation>
    </message>
    <message>
        <source>Parity of each character</source>
        <translation>Parität jedes Zeichens</translation>
    </message>
    <message>
        <source>1 stop bit</source>
        <translation>1 Stoppbit</translation>
    </message>
    <message>
        <source>2 stop bits</source>
        <translation>2 Stoppbits</translation>
    </message>
    <message>
        <source>Stop bits</source>
        <translation>Stoppbits</translation>
    </message>
    <message>
        <source>Stop bits behind each character</source>
        <translation>Stoppbits nach jedem Zeichen</translation>
    </message>
    <message>
        <source>HOST:PORT</source>
        <translation>RECHNER:PORT</translation>
    </message>
    <message>
        <source>Name or address of the gateway, with a port when it is not %1 (%2 of Modbus TCP)</source>
        <translation>Name oder Adresse des Gateways, mit Port, wenn er nicht %1 ist (%2 bei Modbus TCP)</translation>
    </message>
    <message>
        <source>Modbus RTU</source>
        <translation>Modbus RTU</translation>
    </message>
    <message>
        <source>Modbus TCP</source>
        <translation>Modbus TCP</translation>
    </message>
    <message>
        <source>Protocol</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>What the gateway takes: the serial line's bytes, or Modbus TCP</source>
        <translation>Was das Gateway nimmt: die Bytes der seriellen Leitung oder Modbus TCP</translation>
    </message>
    <message>
        <source>Name the serial port, such as /dev/ttyUSB0</source>
        <translation>Die serielle Schnittstelle nennen, etwa /dev/ttyUSB0</translation>
    </message>
    <message>
        <source>Speed '%1': must be 1 to %2 bits per second</source>
        <translation>Baudrate „%1“: muss 1 bis %2 Bit je Sekunde sein</translation>
    </message>
    <message>
        <source>Name the gateway, such as 192.168.0.5:8888</source>
        <translation>Das Gateway nennen, etwa 192.168.0.5:8888</translation>
    </message>
    <message>
        <source>Gateway '%1': write HOST or HOST:PORT, and an IPv6 address in brackets</source>
        <translation>Gateway „%1“: RECHNER oder RECHNER:PORT schreiben, eine IPv6-Adresse in Klammern</translation>
    </message>
</context>
<context>
    <name>kxpanel::LineLegend</name>
    <message>
        <source>asked for</source>
        <translation>gefragt</translation>
    </message>
    <message>
        <source>read along</source>
        <translation>mitgelesen</translation>
    </message>
    <message>
        <source>sent</source>
        <translation>gesendet</translation>
    </message>
    <message>
        <source>waited</source>
        <translation>gewartet</translation>
    </message>
    <message>
        <source>received</source>
        <translation>empfangen</translation>
    </message>
    <message>
        <source>late</source>
        <translation>verspätet</translation>
    </message>
    <message>
        <source>repeated</source>
        <translation>wiederholt</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>fehlgeschlagen</translation>
    </message>
</context>
<context>
    <name>kxpanel::LinePage</name>
    <message>
        <source>Line</source>
        <translation>Leitung</translation>
    </message>
    <message>
        <source>How the line was used in the time that is shown</source>
        <translation>Wie die Leitung in der gezeigten Zeit genutzt wurde</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Keep the picture as it is; what comes is kept, too</source>
        <translation>Das Bild lassen, wie es ist; was kommt, wird auch behalten</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Show less time</source>
        <translation>Weniger Zeit zeigen</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Show more time</source>
        <translation>Mehr Zeit zeigen</translation>
    </message>
    <message>
        <source>Cycles</source>
        <translation>Zyklen</translation>
    </message>
    <message>
        <source>Show as much time as the latest three cycles took</source>
        <translation>So viel Zeit zeigen, wie die letzten drei Zyklen brauchten</translation>
    </message>
    <message numerus="yes">
        <source>Requests take %n registers or %1 bits at most</source>
        <translation>
            <numerusform>Anfragen umfassen höchstens %n Register oder %1 Bits</numerusform>
            <numerusform>Anfragen umfassen höchstens %n Register oder %1 Bits</numerusform>
        </translation>
    </message>
    <message>
        <source>Requests are as long as takes the least time</source>
        <translation>Anfragen sind so lang, wie es am wenigsten Zeit braucht</translation>
    </message>
    <message>
        <source>; paused, %1 more have come</source>
        <translation>; angehalten, %1 weitere sind gekommen</translation>
    </message>
</context>
<context>
    <name>kxpanel::Machine</name>
    <message>
        <source>the line is lost</source>
        <translation>die Leitung ist verloren</translation>
    </message>
    <message>
        <source>the line is not open</source>
        <translation>die Leitung ist nicht offen</translation>
    </message>
    <message>
        <source>; in use by %1</source>
        <translation>; belegt durch %1</translation>
    </message>
    <message>
        <source>%1; name its file with --library</source>
        <translation>%1; ihre Datei mit --library nennen</translation>
    </message>
    <message>
        <source>Modbus RTU as the protocol</source>
        <translation>als Protokoll Modbus RTU</translation>
    </message>
    <message>
        <source>Modbus TCP as the protocol</source>
        <translation>als Protokoll Modbus TCP</translation>
    </message>
</context>
<context>
    <name>kxpanel::MachineJobs</name>
    <message>
        <source>cancelled</source>
        <translation>abgebrochen</translation>
    </message>
    <message>
        <source>it was not begun</source>
        <translation>es wurde nicht begonnen</translation>
    </message>
</context>
<context>
    <name>kxpanel::MainWindow</name>
    <message>
        <source>The window's place and recent files are not kept: %1 cannot be written</source>
        <translation>Platz des Fensters und letzte Dateien werden nicht behalten: %1 kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>The window stood still from %1 to %2. The trend lacks what was read meanwhile.</source>
        <translation>Das Fenster stand von %1 bis %2 still. Im Verlauf fehlt, was in dieser Zeit gelesen wurde.</translation>
    </message>
    <message>
        <source>The computer or this program rested from %1 to %2. Nothing was read meanwhile.</source>
        <translation>Der Rechner oder dieses Programm ruhte von %1 bis %2. In dieser Zeit wurde nichts gelesen.</translation>
    </message>
    <message numerus="yes">
        <source>%n exchange(s) are missing in frames, line and health.</source>
        <translation>
            <numerusform>In Telegrammen, Leitung und Zustand fehlt %n Austausch.</numerusform>
            <numerusform>In Telegrammen, Leitung und Zustand fehlen %n Austausche.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::MessageBar</name>
    <message>
        <source>Close the message</source>
        <translation>Die Meldung schließen</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>und %n weitere</numerusform>
            <numerusform>und %n weitere</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::MoveTags</name>
    <message>
        <source>moving of values</source>
        <translation>Verschieben von Werten</translation>
    </message>
</context>
<context>
    <name>kxpanel::PlanPicture</name>
    <message>
        <source>Requests of a cycle over the addresses</source>
        <translation>Anfragen eines Zyklus über den Adressen</translation>
    </message>
    <message>
        <source>What each request of a cycle reads, a row for each type of a station; as wide as its reply is long. Left and Right select a request.</source>
        <translation>Was jede Anfrage eines Zyklus liest, eine Zeile je Registerart einer Station; so breit, wie die Antwort lang ist. Links und Rechts wählen eine Anfrage.</translation>
    </message>
    <message>
        <source>Nothing is watched</source>
        <translation>Nichts wird beobachtet</translation>
    </message>
</context>
<context>
    <name>kxpanel::PlanRows</name>
    <message numerus="yes">
        <source>%n bits, %1 asked for, %2 read along</source>
        <translation>
            <numerusform>%n Bit, %1 gefragt, %2 mitgelesen</numerusform>
            <numerusform>%n Bits, %1 gefragt, %2 mitgelesen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n registers, %1 asked for, %2 read along</source>
        <translation>
            <numerusform>%n Register, %1 gefragt, %2 mitgelesen</numerusform>
            <numerusform>%n Register, %1 gefragt, %2 mitgelesen</numerusform>
        </translation>
    </message>
    <message>
        <source>Station %1, %2: %3; %4 bytes out, %5 back, %6</source>
        <translation>Station %1, %2: %3; %4 Byte hin, %5 zurück, %6</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>, every %1 ms</source>
        <translation>, alle %1 ms</translation>
    </message>
</context>
<context>
    <name>kxpanel::PortWatch</name>
    <message>
        <source>in use by %1</source>
        <translation>belegt durch %1</translation>
    </message>
</context>
<context>
    <name>kxpanel::Project</name>
    <message>
        <source>the member &apos;%1&apos; is there twice</source>
        <translation>das Element „%1“ kommt doppelt vor</translation>
    </message>
    <message>
        <source>connection.%1: must be a text, a number or true</source>
        <translation>connection.%1: muss ein Text, eine Zahl oder true sein</translation>
    </message>
    <message>
        <source>connection.%1: must be a whole number from 1 to %2</source>
        <translation>connection.%1: muss eine ganze Zahl von 1 bis %2 sein</translation>
    </message>
    <message>
        <source>line %1, column %2</source>
        <translation>Zeile %1, Spalte %2</translation>
    </message>
    <message>
        <source>format: this is no project of kxpanel</source>
        <translation>format: das ist kein Projekt von kxpanel</translation>
    </message>
    <message>
        <source>version: must be a number, 1 or more</source>
        <translation>version: muss eine Zahl sein, 1 oder mehr</translation>
    </message>
    <message>
        <source>version %1: made by a newer kxpanel; this one reads version %2</source>
        <translation>version %1: von einem neueren kxpanel; dieses liest Version %2</translation>
    </message>
    <message>
        <source>must be an array</source>
        <translation>muss ein Array sein</translation>
    </message>
    <message>
        <source>must be a text or a number</source>
        <translation>muss ein Text oder eine Zahl sein</translation>
    </message>
    <message>
        <source>must be an object</source>
        <translation>muss ein Objekt sein</translation>
    </message>
    <message>
        <source>%1.name: '%2' is the name of %3</source>
        <translation>%1.name: „%2“ heißt schon %3</translation>
    </message>
</context>
<context>
    <name>kxpanel::ProjectFile</name>
    <message>
        <source>%1: would be larger than %2 MiB, the most that can be opened again; leave values out or shorten comments</source>
        <translation>%1: wäre größer als %2 MiB, die sich höchstens wieder öffnen lassen; Werte weglassen oder Kommentare kürzen</translation>
    </message>
</context>
<context>
    <name>kxpanel::ProjectKeeper</name>
    <message>
        <source>unnamed project</source>
        <translation>unbenanntes Projekt</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Projects and tags files (*.kxpanel *.csv)</source>
        <translation>Projekte und Variablendateien (*.kxpanel *.csv)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>Projects (*.kxpanel)</source>
        <translation>Projekte (*.kxpanel)</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <source>Save the changes to %1?</source>
        <translation>Die Änderungen an %1 speichern?</translation>
    </message>
    <message>
        <source>Otherwise they are lost.</source>
        <translation>Sonst gehen sie verloren.</translation>
    </message>
</context>
<context>
    <name>kxpanel::RecipeModel</name>
    <message>
        <source>differs</source>
        <translation>verschieden</translation>
    </message>
    <message>
        <source>not in the file</source>
        <translation>nicht in der Datei</translation>
    </message>
    <message>
        <source>not read</source>
        <translation>nicht gelesen</translation>
    </message>
    <message>
        <source>same</source>
        <translation>gleich</translation>
    </message>
    <message numerus="yes">
        <source>%n address(es) from %1 on</source>
        <translation>
            <numerusform>%n Adresse ab %1</numerusform>
            <numerusform>%n Adressen ab %1</numerusform>
        </translation>
    </message>
    <message>
        <source>Whether file and controller have the same value</source>
        <translation>Ob Datei und Steuerung denselben Wert haben</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Name in the file</source>
        <translation>Name in der Datei</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Number of the station that has the value</source>
        <translation>Nummer der Station, die den Wert hat</translation>
    </message>
    <message>
        <source>Station</source>
        <translation>Station</translation>
    </message>
    <message>
        <source>First address of the value; X and Y in octal</source>
        <translation>Erste Adresse des Werts; X und Y oktal</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Value in the file, with its unit</source>
        <translation>Wert in der Datei, mit Einheit</translation>
    </message>
    <message>
        <source>In the file</source>
        <translation>In der Datei</translation>
    </message>
    <message>
        <source>Value that was read from the controller, with its unit</source>
        <translation>Wert, der aus der Steuerung gelesen wurde, mit Einheit</translation>
    </message>
    <message>
        <source>In the controller</source>
        <translation>In der Steuerung</translation>
    </message>
    <message>
        <source>Values of the recipe</source>
        <translation>Werte des Rezepts</translation>
    </message>
</context>
<context>
    <name>kxpanel::RecipesPage</name>
    <message>
        <source>Recipes</source>
        <translation>Rezepte</translation>
    </message>
    <message>
        <source>Open recipe</source>
        <translation>Rezept öffnen</translation>
    </message>
    <message>
        <source>Recipes (*.csv);;All files (*)</source>
        <translation>Rezepte (*.csv);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Nothing was sent: %1</source>
        <translation>Nichts wurde gesendet: %1</translation>
    </message>
    <message>
        <source>All was sent, but not compared. %1</source>
        <translation>Alles wurde gesendet, aber nicht verglichen. %1</translation>
    </message>
    <message>
        <source>Sent, and read again from %1</source>
        <translation>Gesendet und zurückgelesen von %1</translation>
    </message>
    <message>
        <source>Read from %1</source>
        <translation>Gelesen von %1</translation>
    </message>
    <message>
        <source>%1; the values shown were read before</source>
        <translation>%1; gezeigt wird, was vorher gelesen wurde</translation>
    </message>
    <message>
        <source>Save what was read</source>
        <translation>Gelesenes speichern</translation>
    </message>
    <message numerus="yes">
        <source>%n value(s) saved in %1</source>
        <translation>
            <numerusform>%n Wert in %1 gespeichert</numerusform>
            <numerusform>%n Werte in %1 gespeichert</numerusform>
        </translation>
    </message>
    <message>
        <source>Open a recipe to compare it with the controller.</source>
        <translation>Ein Rezept öffnen, um es mit der Steuerung zu vergleichen.</translation>
    </message>
    <message>
        <source>Open recipe...</source>
        <translation>Rezept öffnen ...</translation>
    </message>
    <message>
        <source>Open a recipe file (CSV)</source>
        <translation>Eine Rezeptdatei öffnen (CSV)</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Neu laden</translation>
    </message>
    <message>
        <source>Open the same file again</source>
        <translation>Dieselbe Datei noch einmal öffnen</translation>
    </message>
    <message>
        <source>Read from controller</source>
        <translation>Aus der Steuerung lesen</translation>
    </message>
    <message>
        <source>Read all values of the recipe and compare them</source>
        <translation>Alle Werte des Rezepts lesen und vergleichen</translation>
    </message>
    <message>
        <source>Download...</source>
        <translation>Senden ...</translation>
    </message>
    <message>
        <source>Send the values in the file to the controller; asks first</source>
        <translation>Die Werte der Datei an die Steuerung senden; fragt vorher</translation>
    </message>
    <message>
        <source>Differences only</source>
        <translation>Nur Unterschiede</translation>
    </message>
    <message>
        <source>Show the values that differ and no others</source>
        <translation>Nur die Werte zeigen, die verschieden sind</translation>
    </message>
    <message>
        <source>Save what was read...</source>
        <translation>Gelesenes speichern ...</translation>
    </message>
    <message>
        <source>Save the file with the controller's values</source>
        <translation>Die Datei mit den Werten der Steuerung speichern</translation>
    </message>
    <message>
        <source>; read from %1</source>
        <translation>; gelesen von %1</translation>
    </message>
    <message>
        <source>; what was read is not saved</source>
        <translation>; das Gelesene ist nicht gespeichert</translation>
    </message>
    <message numerus="yes">
        <source>All was sent, but the controller has %n other value(s) than were sent</source>
        <translation>
            <numerusform>Alles wurde gesendet, aber die Steuerung hat %n anderen Wert als gesendet wurde</numerusform>
            <numerusform>Alles wurde gesendet, aber die Steuerung hat %n andere Werte als gesendet wurden</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 was sent</source>
        <translation>%1 wurde gesendet</translation>
    </message>
</context>
<context>
    <name>kxpanel::RemoveTags</name>
    <message>
        <source>removal of values</source>
        <translation>Entfernen von Werten</translation>
    </message>
</context>
<context>
    <name>kxpanel::ScanPanel</name>
    <message>
        <source>Stations to ask</source>
        <translation>Zu fragende Stationen</translation>
    </message>
    <message>
        <source>Stations to ask, such as 1-247 or 1,3,10-20</source>
        <translation>Zu fragende Stationen, etwa 1-247 oder 1,3,10-20</translation>
    </message>
    <message>
        <source> ms</source>
        <translation> ms</translation>
    </message>
    <message>
        <source>Time for a reply</source>
        <translation>Zeit für eine Antwort</translation>
    </message>
    <message>
        <source>Milliseconds to wait for each station's reply</source>
        <translation>Millisekunden, die auf die Antwort jeder Station gewartet wird</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Starten</translation>
    </message>
    <message>
        <source>Stations asked</source>
        <translation>Gefragte Stationen</translation>
    </message>
    <message>
        <source>%v of %m</source>
        <translation>%v von %m</translation>
    </message>
    <message>
        <source>Stations found</source>
        <translation>Gefundene Stationen</translation>
    </message>
    <message>
        <source>Click a station to use it for addresses that name none</source>
        <translation>Eine Station anklicken, um sie für Adressen ohne Station zu nehmen</translation>
    </message>
    <message>
        <source>Stati&amp;ons</source>
        <translation>Stati&amp;onen</translation>
    </message>
    <message>
        <source>wait</source>
        <translation>Wartezeit</translation>
    </message>
    <message>
        <source>connecting</source>
        <translation>wird verbunden</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation>abgebrochen</translation>
    </message>
    <message>
        <source>not connected</source>
        <translation>nicht verbunden</translation>
    </message>
    <message>
        <source>none yet</source>
        <translation>noch keine</translation>
    </message>
    <message>
        <source>Station %1</source>
        <translation>Station %1</translation>
    </message>
    <message>
        <source>found: %1</source>
        <translation>gefunden: %1</translation>
    </message>
    <message>
        <source>no station answers</source>
        <translation>keine Station antwortet</translation>
    </message>
    <message>
        <source>something is being written or transferred; try again after it</source>
        <translation>gerade wird geschrieben oder übertragen; danach noch einmal versuchen</translation>
    </message>
</context>
<context>
    <name>kxpanel::StatusLine</name>
    <message>
        <source>Line</source>
        <translation>Leitung</translation>
    </message>
    <message>
        <source>Requests and cycles since the line was opened</source>
        <translation>Anfragen und Zyklen, seit die Leitung geöffnet wurde</translation>
    </message>
    <message>
        <source>Requests per second, and share of the time in which characters occupy the line</source>
        <translation>Anfragen je Sekunde und Anteil der Zeit, in der Zeichen die Leitung belegen</translation>
    </message>
    <message numerus="yes">
        <source>%n cycle(s)</source>
        <translation>
            <numerusform>%n Zyklus</numerusform>
            <numerusform>%n Zyklen</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 repeated</source>
        <translation>%1 wiederholt</translation>
    </message>
    <message>
        <source>%1 failed</source>
        <translation>%1 fehlgeschlagen</translation>
    </message>
</context>
<context>
    <name>kxpanel::TransferBar</name>
    <message>
        <source>Requests of the transfer that were answered</source>
        <translation>Beantwortete Anfragen der Übertragung</translation>
    </message>
    <message>
        <source>&amp;Abort</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>End the transfer; what was sent stays in the controller (Esc)</source>
        <translation>Die Übertragung beenden; Gesendetes bleibt in der Steuerung (Esc)</translation>
    </message>
    <message>
        <source>Reading: %v of %m requests</source>
        <translation>Lesen: %v von %m Anfragen</translation>
    </message>
    <message>
        <source>Sending: %v of %m requests</source>
        <translation>Senden: %v von %m Anfragen</translation>
    </message>
</context>
<context>
    <name>kxpanel::TransferTexts</name>
    <message>
        <source>Nothing was read: %1</source>
        <translation>Nichts wurde gelesen: %1</translation>
    </message>
    <message>
        <source>Nothing was sent: %1</source>
        <translation>Nichts wurde gesendet: %1</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n request(s)</source>
        <translation>
            <numerusform>%1 von %n Anfrage</numerusform>
            <numerusform>%1 von %n Anfragen</numerusform>
        </translation>
    </message>
    <message>
        <source>Reading stopped after %1: %2</source>
        <translation>Lesen endete nach %1: %2</translation>
    </message>
    <message>
        <source>Download stopped after %1: %2</source>
        <translation>Senden endete nach %1: %2</translation>
    </message>
    <message>
        <source>; sent: %1</source>
        <translation>; gesendet: %1</translation>
    </message>
    <message>
        <source>; perhaps stored: %1</source>
        <translation>; vielleicht gespeichert: %1</translation>
    </message>
    <message numerus="yes">
        <source>%n value(s)</source>
        <translation>
            <numerusform>%n Wert</numerusform>
            <numerusform>%n Werte</numerusform>
        </translation>
    </message>
    <message>
        <source>not read from the controller</source>
        <translation>nicht aus der Steuerung gelesen</translation>
    </message>
    <message numerus="yes">
        <source>%n differ(s)</source>
        <translation>
            <numerusform>%n verschieden</numerusform>
            <numerusform>%n verschieden</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not in the file</source>
        <translation>
            <numerusform>%n nicht in der Datei</numerusform>
            <numerusform>%n nicht in der Datei</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n the same</source>
        <translation>
            <numerusform>%n gleich</numerusform>
            <numerusform>%n gleich</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::TrendChannels</name>
    <message>
        <source>%1 is text, which has no curve</source>
        <translation>%1 ist Text und hat keine Kurve</translation>
    </message>
    <message numerus="yes">
        <source>A plot holds %n value(s) at most</source>
        <translation>
            <numerusform>Ein Diagramm fasst höchstens %n Wert</numerusform>
            <numerusform>Ein Diagramm fasst höchstens %n Werte</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::TrendFileReader</name>
    <message>
        <source>The first %1 of its %2 values are shown</source>
        <translation>Die ersten %1 seiner %2 Werte werden gezeigt</translation>
    </message>
    <message>
        <source>Of its old values only some are shown, the lowest and highest among them</source>
        <translation>Von seinen alten Werten werden nur einige gezeigt, darunter die niedrigsten und höchsten</translation>
    </message>
    <message>
        <source>%1 (recorded)</source>
        <translation>%1 (aufgezeichnet)</translation>
    </message>
    <message>
        <source>Its clock was set back by %1; what was before is not shown</source>
        <translation>Die Uhr wurde darin um %1 zurückgestellt; was davor war, ist nicht zu sehen</translation>
    </message>
    <message>
        <source>It holds no values</source>
        <translation>Sie enthält keine Werte</translation>
    </message>
</context>
<context>
    <name>kxpanel::TrendFileWriter</name>
    <message>
        <source>No value is shown that could be saved</source>
        <translation>Kein Wert wird gezeigt, der gespeichert werden könnte</translation>
    </message>
    <message>
        <source>%1: its name must end with .csv or .sqlite</source>
        <translation>%1: der Name muss auf .csv oder .sqlite enden</translation>
    </message>
    <message>
        <source>%1 is shown twice; hide one of both</source>
        <translation>%1 wird zweimal gezeigt; eines von beiden ausblenden</translation>
    </message>
    <message>
        <source>%1: cannot be replaced</source>
        <translation>%1: kann nicht ersetzt werden</translation>
    </message>
</context>
<context>
    <name>kxpanel::TrendFiles</name>
    <message>
        <source>Open recording</source>
        <translation>Aufzeichnung öffnen</translation>
    </message>
    <message>
        <source>Recordings (*.csv *.sqlite *.sqlite3 *.db)</source>
        <translation>Aufzeichnungen (*.csv *.sqlite *.sqlite3 *.db)</translation>
    </message>
    <message>
        <source>Save picture</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>Pictures (*.png *.svg)</source>
        <translation>Bilder (*.png *.svg)</translation>
    </message>
    <message>
        <source>Save values</source>
        <translation>Werte speichern</translation>
    </message>
    <message>
        <source>Recordings (*.csv *.sqlite)</source>
        <translation>Aufzeichnungen (*.csv *.sqlite)</translation>
    </message>
    <message>
        <source>Reading %1 …</source>
        <translation>%1 wird gelesen …</translation>
    </message>
    <message>
        <source>%1 is no longer read</source>
        <translation>%1 wird nicht weiter gelesen</translation>
    </message>
    <message>
        <source>%1 is still being saved</source>
        <translation>%1 wird noch gespeichert</translation>
    </message>
    <message>
        <source>Saving %1 …</source>
        <translation>%1 wird gespeichert …</translation>
    </message>
    <message>
        <source>%1 is saved</source>
        <translation>%1 ist gespeichert</translation>
    </message>
    <message>
        <source>of old values only some are kept, the lowest and highest among them</source>
        <translation>von alten Werten sind nur einige behalten, darunter die niedrigsten und höchsten</translation>
    </message>
    <message>
        <source>some numbers have more digits than the 17 that are written</source>
        <translation>einige Zahlen haben mehr als die 17 Stellen, die geschrieben sind</translation>
    </message>
    <message>
        <source>The plot has room for %1 of its values</source>
        <translation>Das Diagramm hat Platz für %1 ihrer Werte</translation>
    </message>
    <message>
        <source>%1 of values</source>
        <translation>Werte über %1</translation>
    </message>
</context>
<context>
    <name>kxpanel::TrendLegend</name>
    <message>
        <source>left</source>
        <translation>links</translation>
    </message>
    <message>
        <source>right</source>
        <translation>rechts</translation>
    </message>
    <message>
        <source>lane</source>
        <translation>Spur</translation>
    </message>
    <message>
        <source>(no number)</source>
        <translation>(keine Zahl)</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>%1 of station %2</source>
        <translation>%1 der Station %2</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Now</source>
        <translation>Jetzt</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Cursor 1</source>
        <translation>Cursor 1</translation>
    </message>
    <message>
        <source>Cursor 2</source>
        <translation>Cursor 2</translation>
    </message>
    <message>
        <source>Difference</source>
        <translation>Differenz</translation>
    </message>
    <message>
        <source>Axis</source>
        <translation>Achse</translation>
    </message>
    <message>
        <source>(gap)</source>
        <translation>(Lücke)</translation>
    </message>
    <message>
        <source>(no value)</source>
        <translation>(kein Wert)</translation>
    </message>
    <message>
        <source>(not exact)</source>
        <translation>(nicht genau)</translation>
    </message>
</context>
<context>
    <name>kxpanel::TrendLegendView</name>
    <message>
        <source>Values in the plot</source>
        <translation>Werte im Diagramm</translation>
    </message>
    <message>
        <source>Left &amp;scale</source>
        <translation>&amp;Linke Skala</translation>
    </message>
    <message>
        <source>&amp;Right scale</source>
        <translation>&amp;Rechte Skala</translation>
    </message>
    <message>
        <source>&amp;Lane of its own</source>
        <translation>Eigene &amp;Spur</translation>
    </message>
    <message>
        <source>By its &amp;unit</source>
        <translation>Nach der &amp;Einheit</translation>
    </message>
</context>
<context>
    <name>kxpanel::TrendPage</name>
    <message>
        <source>Trend</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Trend of values</source>
        <translation>Verlauf der Werte</translation>
    </message>
</context>
<context>
    <name>kxpanel::TrendPlot</name>
    <message>
        <source>%1: its name must end with .png or .svg</source>
        <translation>%1: der Name muss auf .png oder .svg enden</translation>
    </message>
    <message>
        <source>Drag values from the list onto this plot, or name them below.</source>
        <translation>Werte aus der Liste auf dieses Diagramm ziehen oder unten nennen.</translation>
    </message>
</context>
<context>
    <name>kxpanel::TrendSpanBox</name>
    <message>
        <source>Time that the window shows</source>
        <translation>Zeitspanne, die das Fenster zeigt</translation>
    </message>
</context>
<context>
    <name>kxpanel::TrendText</name>
    <message>
        <source>Cursor %1: %2</source>
        <translation>Cursor %1: %2</translation>
    </message>
    <message>
        <source>%1 ms</source>
        <translation>%1 ms</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>%1 h</source>
        <translation>%1 h</translation>
    </message>
    <message>
        <source>Keys 1 and 2 set cursors; the wheel zooms, a band zooms in, the middle button pans.</source>
        <translation>Die Tasten 1 und 2 setzen Cursor; das Rad zoomt, ein Rahmen vergrößert, die mittlere Taste verschiebt.</translation>
    </message>
    <message>
        <source>Difference: %1</source>
        <translation>Differenz: %1</translation>
    </message>
</context>
<context>
    <name>kxpanel::TrendValueField</name>
    <message>
        <source>Add value</source>
        <translation>Wert hinzufügen</translation>
    </message>
    <message>
        <source>Name or address of a watched value, and Enter</source>
        <translation>Name oder Adresse eines beobachteten Werts, dann Eingabe</translation>
    </message>
    <message>
        <source>Add a value to the plot</source>
        <translation>Einen Wert zum Diagramm hinzufügen</translation>
    </message>
    <message>
        <source>No watched value is called %1</source>
        <translation>Kein beobachteter Wert heißt %1</translation>
    </message>
</context>
<context>
    <name>kxpanel::ValueWriter</name>
    <message>
        <source>%1 is an input and can only be read</source>
        <translation>%1 ist ein Eingang und kann nur gelesen werden</translation>
    </message>
    <message>
        <source>Bits of %1 change by themselves; write the whole word</source>
        <translation>Bits von %1 ändern sich von selbst; das ganze Wort schreiben</translation>
    </message>
    <message>
        <source>called off before it was sent</source>
        <translation>abgebrochen, bevor er gesendet wurde</translation>
    </message>
    <message>
        <source>its row was removed or changed before it was sent</source>
        <translation>seine Zeile wurde entfernt oder geändert, bevor er gesendet wurde</translation>
    </message>
</context>
<context>
    <name>kxpanel::WatchModel</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>What people call the value (F2 edits)</source>
        <translation>Wie der Wert genannt wird (F2 ändert)</translation>
    </message>
    <message>
        <source>Station</source>
        <translation>Station</translation>
    </message>
    <message>
        <source>Station on the line, 1 to 247</source>
        <translation>Station an der Leitung, 1 bis 247</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>As typed on the panel; X and Y are octal</source>
        <translation>Wie am Bediengerät eingegeben; X und Y sind oktal</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>As read last. Type and press Enter to write; Space switches a bit</source>
        <translation>Wie zuletzt gelesen. Eingeben und Eingabetaste schreibt; Leertaste schaltet ein Bit um</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Unit of the value</source>
        <translation>Einheit des Werts</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>What became of the last read, or of a write</source>
        <translation>Was aus dem letzten Lesen oder Schreiben wurde</translation>
    </message>
    <message>
        <source>Age</source>
        <translation>Alter</translation>
    </message>
    <message>
        <source>Time since the last good read</source>
        <translation>Zeit seit dem letzten guten Lesen</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>What the registers mean, such as s16*0.1 or float</source>
        <translation>Was die Register bedeuten, etwa s16*0.1 oder float</translation>
    </message>
    <message>
        <source>Raw</source>
        <translation>Roh</translation>
    </message>
    <message>
        <source>The registers in hexadecimal</source>
        <translation>Die Register hexadezimal</translation>
    </message>
    <message>
        <source>Modbus</source>
        <translation>Modbus</translation>
    </message>
    <message>
        <source>Number of the coil or holding register on the wire, from 0</source>
        <translation>Nummer des Coils oder Halteregisters auf der Leitung, ab 0</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Kommentar</translation>
    </message>
    <message>
        <source>Notes (F2 edits)</source>
        <translation>Notizen (F2 ändert)</translation>
    </message>
    <message>
        <source>a row has one value</source>
        <translation>eine Zeile hat einen Wert</translation>
    </message>
    <message>
        <source>the name '%1' is taken</source>
        <translation>der Name „%1“ ist vergeben</translation>
    </message>
    <message>
        <source>Every</source>
        <translation>Intervall</translation>
    </message>
    <message>
        <source>Time from one read to the next, such as 500 ms or 10 s; empty: in each cycle (F2 edits)</source>
        <translation>Zeit von einem Lesen zum nächsten, etwa 500 ms oder 10 s; leer: in jedem Zyklus (F2 bearbeitet)</translation>
    </message>
    <message>
        <source>must be a time from 0 to 1440min, such as 500ms, 10s or 5min</source>
        <translation>muss eine Zeit von 0 bis 1440min sein, etwa 500ms, 10s oder 5min</translation>
    </message>
</context>
<context>
    <name>kxpanel::WatchPage</name>
    <message>
        <source>Watch</source>
        <translation>Werte</translation>
    </message>
    <message>
        <source>%1 = %2 written</source>
        <translation>%1 = %2 geschrieben</translation>
    </message>
    <message>
        <source>%1 = %2 not confirmed: %3; the controller may have it</source>
        <translation>%1 = %2 nicht bestätigt: %3; die Steuerung hat es vielleicht</translation>
    </message>
    <message>
        <source>%1 = %2 not written: %3</source>
        <translation>%1 = %2 nicht geschrieben: %3</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>Type an address to watch</source>
        <translation>Eine Adresse zum Beobachten eingeben</translation>
    </message>
    <message>
        <source>&amp;Open Tags…</source>
        <translation>&amp;Variablen öffnen …</translation>
    </message>
    <message>
        <source>Add the values of a tags file</source>
        <translation>Die Werte einer Variablendatei hinzufügen</translation>
    </message>
    <message>
        <source>Re&amp;move</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Remove the selected values from the list</source>
        <translation>Die ausgewählten Werte aus der Liste entfernen</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>Take the selected values to the clipboard</source>
        <translation>Die ausgewählten Werte in die Zwischenablage nehmen</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Copy the selected values as rows of a tags file</source>
        <translation>Die ausgewählten Werte als Zeilen einer Variablendatei kopieren</translation>
    </message>
    <message>
        <source>Copy as &amp;Shown</source>
        <translation>Kopieren wie &amp;gezeigt</translation>
    </message>
    <message>
        <source>Copy the cells of the selected rows for a spreadsheet</source>
        <translation>Die Zellen der ausgewählten Zeilen für eine Tabellenkalkulation kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>E&amp;infügen</translation>
    </message>
    <message>
        <source>Mov&amp;e Up</source>
        <translation>Nach &amp;oben</translation>
    </message>
    <message>
        <source>Move the selected values up in the list</source>
        <translation>Die ausgewählten Werte in der Liste nach oben schieben</translation>
    </message>
    <message>
        <source>Move &amp;Down</source>
        <translation>Nach &amp;unten</translation>
    </message>
    <message>
        <source>Move the selected values down in the list</source>
        <translation>Die ausgewählten Werte in der Liste nach unten schieben</translation>
    </message>
    <message>
        <source>Colum&amp;ns</source>
        <translation>Spal&amp;ten</translation>
    </message>
    <message>
        <source>Sort A&amp;gain</source>
        <translation>&amp;Neu sortieren</translation>
    </message>
    <message>
        <source>Sort by the values of now; rows do not move by themselves</source>
        <translation>Nach den jetzigen Werten sortieren; Zeilen wandern nicht von selbst</translation>
    </message>
    <message>
        <source>&amp;List Order</source>
        <translation>&amp;Listenreihenfolge</translation>
    </message>
    <message>
        <source>Show rows in the order of the list</source>
        <translation>Zeilen in der Reihenfolge der Liste zeigen</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>&amp;Suchen</translation>
    </message>
    <message>
        <source>Show the rows with some text only</source>
        <translation>Nur die Zeilen mit einem Text zeigen</translation>
    </message>
    <message>
        <source>Show All</source>
        <translation>Alle zeigen</translation>
    </message>
    <message>
        <source>Show all rows again</source>
        <translation>Wieder alle Zeilen zeigen</translation>
    </message>
    <message>
        <source>Ed&amp;it Cell</source>
        <translation>&amp;Zelle ändern</translation>
    </message>
    <message>
        <source>Edit the current cell</source>
        <translation>Die aktuelle Zelle ändern</translation>
    </message>
    <message>
        <source>&amp;Write…</source>
        <translation>S&amp;chreiben …</translation>
    </message>
    <message>
        <source>Write one value to all selected rows</source>
        <translation>Einen Wert in alle ausgewählten Zeilen schreiben</translation>
    </message>
    <message>
        <source>Switch &amp;Bit</source>
        <translation>&amp;Bit umschalten</translation>
    </message>
    <message>
        <source>Write the other value to the selected bit</source>
        <translation>Den anderen Wert in das ausgewählte Bit schreiben</translation>
    </message>
    <message numerus="yes">
        <source>%n values added; the filter hides some</source>
        <translation>
            <numerusform>%n Wert hinzugefügt; der Filter verbirgt ihn</numerusform>
            <numerusform>%n Werte hinzugefügt; der Filter verbirgt einige</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n values added</source>
        <translation>
            <numerusform>%n Wert hinzugefügt</numerusform>
            <numerusform>%n Werte hinzugefügt</numerusform>
        </translation>
    </message>
    <message>
        <source>Open Tags</source>
        <translation>Variablen öffnen</translation>
    </message>
    <message>
        <source>Tags files (*.csv *.txt);;All files (*)</source>
        <translation>Variablendateien (*.csv *.txt);;Alle Dateien (*)</translation>
    </message>
    <message numerus="yes">
        <source>%1 has %n faults; nothing was added</source>
        <translation>
            <numerusform>%1 hat %n Fehler; nichts wurde hinzugefügt</numerusform>
            <numerusform>%1 hat %n Fehler; nichts wurde hinzugefügt</numerusform>
        </translation>
    </message>
    <message>
        <source>Nothing pasted: %1</source>
        <translation>Nichts eingefügt: %1</translation>
    </message>
    <message>
        <source>Rows are moved in the order of the list: Shift+F5 and Esc show it</source>
        <translation>Zeilen werden in der Reihenfolge der Liste verschoben: Umschalt+F5 und Esc zeigen sie</translation>
    </message>
    <message>
        <source>%1 cannot be edited</source>
        <translation>%1 kann nicht geändert werden</translation>
    </message>
    <message>
        <source>The rows have just moved; press the switch again</source>
        <translation>Die Zeilen sind gerade verrutscht; den Schalter noch einmal betätigen</translation>
    </message>
    <message>
        <source>The value of %1 is not known now; type 0 or 1 to write it</source>
        <translation>Der Wert von %1 ist jetzt nicht bekannt; 0 oder 1 eingeben, um ihn zu schreiben</translation>
    </message>
    <message>
        <source>What is wrong</source>
        <translation>Was nicht stimmt</translation>
    </message>
    <message>
        <source>Sa&amp;ve Tags…</source>
        <translation>Variablen s&amp;peichern …</translation>
    </message>
    <message>
        <source>Save all values as a tags file, which kxhost takes, too</source>
        <translation>Alle Werte als Variablendatei speichern, die auch kxhost nimmt</translation>
    </message>
    <message>
        <source>Add addresses or rows of a tags file from the clipboard, or write values to the selected cells</source>
        <translation>Adressen oder Zeilen einer Variablendatei aus der Zwischenablage hinzufügen oder Werte in die ausgewählten Zellen schreiben</translation>
    </message>
    <message numerus="yes">
        <source>%n values for other rows: select as many, or the first of them</source>
        <translation>
            <numerusform>%n Wert für andere Zeilen: ebenso viele auswählen oder die erste davon</numerusform>
            <numerusform>%n Werte für andere Zeilen: ebenso viele auswählen oder die erste davon</numerusform>
        </translation>
    </message>
    <message>
        <source>Save Tags</source>
        <translation>Variablen speichern</translation>
    </message>
    <message>
        <source>Tags files (*.csv);;All files (*)</source>
        <translation>Variablendateien (*.csv);;Alle Dateien (*)</translation>
    </message>
    <message numerus="yes">
        <source>%n values saved in %1</source>
        <translation>
            <numerusform>%n Wert in %1 gespeichert</numerusform>
            <numerusform>%n Werte in %1 gespeichert</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 = %2 written, %n to go; Esc calls them off</source>
        <translation>
            <numerusform>%1 = %2 geschrieben, %n steht aus; Esc bricht ihn ab</numerusform>
            <numerusform>%1 = %2 geschrieben, %n stehen aus; Esc bricht sie ab</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n values written</source>
        <translation>
            <numerusform>%n Wert geschrieben</numerusform>
            <numerusform>%n Werte geschrieben</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n values not confirmed</source>
        <translation>
            <numerusform>%1 von %n Wert nicht bestätigt</numerusform>
            <numerusform>%1 von %n Werten nicht bestätigt</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::WatchTable</name>
    <message>
        <source>Watched values</source>
        <translation>Beobachtete Werte</translation>
    </message>
</context>
<context>
    <name>kxpanel::WindowMenus</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>Begin an empty project</source>
        <translation>Ein leeres Projekt beginnen</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen ...</translation>
    </message>
    <message>
        <source>Open a project, or add the tags of a tags file</source>
        <translation>Ein Projekt öffnen oder die Variablen einer Datei hinzufügen</translation>
    </message>
    <message>
        <source>Open &amp;recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save the project</source>
        <translation>Das Projekt speichern</translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation>Speichern &amp;unter ...</translation>
    </message>
    <message>
        <source>Save the project in another file</source>
        <translation>Das Projekt in einer anderen Datei speichern</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Close the window</source>
        <translation>Das Fenster schließen</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Line</source>
        <translation>&amp;Leitung</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Show the page '%1'</source>
        <translation>Die Seite „%1“ zeigen</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>&amp;Farben</translation>
    </message>
    <message>
        <source>&amp;System's</source>
        <translation>&amp;System</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Hell</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Dunkel</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Shortcuts</source>
        <translation>&amp;Tastenkürzel</translation>
    </message>
    <message>
        <source>Show all shortcuts</source>
        <translation>Alle Tastenkürzel zeigen</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;Über</translation>
    </message>
    <message>
        <source>Show versions</source>
        <translation>Versionen zeigen</translation>
    </message>
    <message>
        <source>About kxpanel</source>
        <translation>Über kxpanel</translation>
    </message>
    <message>
        <source>Values, trends and the line of KX series controllers</source>
        <translation>Werte, Verläufe und Leitung von Steuerungen der KX-Serie</translation>
    </message>
    <message>
        <source>kxpanel is based in part on the work of the Qwt project (http://qwt.sf.net).</source>
        <translation>kxpanel beruht zum Teil auf der Arbeit des Qwt-Projekts (http://qwt.sf.net).</translation>
    </message>
</context>
<context>
    <name>kxpanel::WriteBar</name>
    <message>
        <source>%1 and %2 more</source>
        <translation>%1 und %2 weitere</translation>
    </message>
    <message>
        <source>station %1</source>
        <translation>Station %1</translation>
    </message>
    <message>
        <source>stations %1</source>
        <translation>Stationen %1</translation>
    </message>
    <message>
        <source>&amp;Write</source>
        <translation>Schre&amp;iben</translation>
    </message>
    <message>
        <source>Value to write to all</source>
        <translation>Wert, der in alle geschrieben wird</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>Abb&amp;rechen</translation>
    </message>
    <message>
        <source>Write nothing (Esc)</source>
        <translation>Nichts schreiben (Esc)</translation>
    </message>
    <message numerus="yes">
        <source>Write to %n values of %1: %2.</source>
        <translation>
            <numerusform>In %n Wert von %1 schreiben: %2.</numerusform>
            <numerusform>In %n Werte von %1 schreiben: %2.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n can only be read.</source>
        <translation>
            <numerusform>%n kann nur gelesen werden.</numerusform>
            <numerusform>%n können nur gelesen werden.</numerusform>
        </translation>
    </message>
    <message>
        <source>What is selected can only be read.</source>
        <translation>Das Ausgewählte kann nur gelesen werden.</translation>
    </message>
    <message>
        <source>Write to all of them (Enter)</source>
        <translation>In alle schreiben (Eingabe)</translation>
    </message>
    <message numerus="yes">
        <source>Write %n values of %1: %2.</source>
        <translation>
            <numerusform>%n Wert von %1 schreiben: %2.</numerusform>
            <numerusform>%n Werte von %1 schreiben: %2.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kx</name>
    <message>
        <source>unknown register type '%1'; the types are %2</source>
        <translation>unbekannte Registerart „%1“; die Arten sind %2</translation>
    </message>
    <message>
        <source>'%1' is not an octal number; the addresses are %2</source>
        <translation>„%1“ ist keine Oktalzahl; die Adressen sind %2</translation>
    </message>
    <message>
        <source>'%1' is not a decimal number; the addresses are %2</source>
        <translation>„%1“ ist keine Dezimalzahl; die Adressen sind %2</translation>
    </message>
    <message>
        <source>out of range; the addresses are %1</source>
        <translation>außerhalb des Bereichs; die Adressen sind %1</translation>
    </message>
    <message>
        <source>the count must be 1 or more</source>
        <translation>die Anzahl muss 1 oder mehr sein</translation>
    </message>
    <message>
        <source>%1 values run past the last address; the addresses are %2</source>
        <translation>%1 Werte reichen über die letzte Adresse hinaus; die Adressen sind %2</translation>
    </message>
    <message>
        <source>the station must be %1 to %2</source>
        <translation>die Station muss %1 bis %2 sein</translation>
    </message>
    <message>
        <source>'%1' is not a decimal or 0x hexadecimal number</source>
        <translation>„%1“ ist keine dezimale oder 0x-hexadezimale Zahl</translation>
    </message>
    <message>
        <source>%1 does not fit; %2 takes %3 to %4</source>
        <translation>%1 passt nicht; %2 nimmt %3 bis %4</translation>
    </message>
    <message>
        <source>not an address; write TYPENUMBER[:COUNT][@STATION] without spaces, such as D100:4, X17 or 32CV200@2</source>
        <translation>keine Adresse; ARTNUMMER[:ANZAHL][@STATION] ohne Leerzeichen schreiben, etwa D100:4, X17 oder 32CV200@2</translation>
    </message>
    <message>
        <source>not an assignment; write ADDRESS=VALUE[,VALUE...], such as D100=1234</source>
        <translation>keine Zuweisung; ADRESSE=WERT[,WERT...] schreiben, etwa D100=1234</translation>
    </message>
    <message>
        <source>%1%2 to %1%3 (octal)</source>
        <translation>%1%2 bis %1%3 (oktal)</translation>
    </message>
    <message>
        <source>%1%2 to %1%3 (decimal)</source>
        <translation>%1%2 bis %1%3 (dezimal)</translation>
    </message>
    <message>
        <source>%1 for a count of %2</source>
        <translation>%1 bei einer Anzahl von %2</translation>
    </message>
    <message numerus="yes">
        <source>%1 values</source>
        <translation>
            <numerusform>%1 Wert</numerusform>
            <numerusform>%1 Werte</numerusform>
        </translation>
    </message>
    <message>
        <source>coil %1</source>
        <translation>Coil %1</translation>
    </message>
    <message>
        <source>coils %1</source>
        <translation>Coils %1</translation>
    </message>
    <message>
        <source>holding register %1</source>
        <translation>Register %1</translation>
    </message>
    <message>
        <source>holding registers %1</source>
        <translation>Register %1</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1–%2</translation>
    </message>
    <message>
        <source> and </source>
        <translation> und </translation>
    </message>
    <message>
        <source>a %1 takes %2 registers; raise --max-words, which is %3</source>
        <translation>ein %1 braucht %2 Register; --max-words erhöhen, das %3 ist</translation>
    </message>
    <message>
        <source>the driver is in use in this process; end its session first</source>
        <translation>der Treiber ist in diesem Programm schon in Gebrauch; zuerst dessen Sitzung beenden</translation>
    </message>
    <message>
        <source>%1: cannot load the driver library: %2</source>
        <translation>%1: die Treiberbibliothek kann nicht geladen werden: %2</translation>
    </message>
    <message>
        <source>%1: not the driver library: it has no %2</source>
        <translation>%1: nicht die Treiberbibliothek: %2 fehlt darin</translation>
    </message>
    <message>
        <source>the driver did not take the reply</source>
        <translation>der Treiber nahm die Antwort nicht</translation>
    </message>
    <message>
        <source>%1: what it sends is not Modbus TCP</source>
        <translation>%1: was von dort kommt, ist kein Modbus TCP</translation>
    </message>
    <message>
        <source>%1: the port cannot switch an RS-485 transceiver: %2; without --rs485 an adapter that switches by itself works</source>
        <translation>%1: die Schnittstelle kann keinen RS-485-Wandler umschalten: %2; ohne --rs485 geht ein Adapter, der selbst umschaltet</translation>
    </message>
    <message>
        <source>the port was closed or unplugged</source>
        <translation>die Schnittstelle wurde geschlossen oder abgezogen</translation>
    </message>
    <message>
        <source>cannot open the port: %1</source>
        <translation>die Schnittstelle kann nicht geöffnet werden: %1</translation>
    </message>
    <message>
        <source>%1: no connection within %2 seconds</source>
        <translation>%1: keine Verbindung innerhalb von %2 Sekunden</translation>
    </message>
    <message>
        <source>%1: cannot connect: %2</source>
        <translation>%1: keine Verbindung: %2</translation>
    </message>
    <message>
        <source>%1: the connection is lost: %2</source>
        <translation>%1: die Verbindung ist verloren: %2</translation>
    </message>
    <message>
        <source>illegal function</source>
        <translation>unzulässige Funktion</translation>
    </message>
    <message>
        <source>illegal data address</source>
        <translation>unzulässige Adresse</translation>
    </message>
    <message>
        <source>illegal data value</source>
        <translation>unzulässiger Wert</translation>
    </message>
    <message>
        <source>device failure</source>
        <translation>Gerätefehler</translation>
    </message>
    <message>
        <source>still at work</source>
        <translation>noch in Arbeit</translation>
    </message>
    <message>
        <source>busy</source>
        <translation>beschäftigt</translation>
    </message>
    <message>
        <source>gateway has no path</source>
        <translation>Gateway ohne Weg</translation>
    </message>
    <message>
        <source>no answer to the gateway</source>
        <translation>keine Antwort an das Gateway</translation>
    </message>
    <message>
        <source>other reason</source>
        <translation>anderer Grund</translation>
    </message>
    <message>
        <source>good</source>
        <translation>gut</translation>
    </message>
    <message>
        <source>no reply</source>
        <translation>keine Antwort</translation>
    </message>
    <message>
        <source>short reply</source>
        <translation>zu kurze Antwort</translation>
    </message>
    <message>
        <source>bad reply</source>
        <translation>fehlerhafte Antwort</translation>
    </message>
    <message>
        <source>wrong byte count</source>
        <translation>falsche Bytezahl</translation>
    </message>
    <message>
        <source>reply of another request</source>
        <translation>Antwort auf eine andere Anfrage</translation>
    </message>
    <message>
        <source>line lost</source>
        <translation>Leitung verloren</translation>
    </message>
    <message>
        <source>broadcast</source>
        <translation>Rundruf</translation>
    </message>
    <message>
        <source>the line is never silent</source>
        <translation>die Leitung ist nie in Ruhe</translation>
    </message>
    <message>
        <source>not whole, so not sent</source>
        <translation>nicht vollständig, daher nicht gesendet</translation>
    </message>
    <message>
        <source>%1, a frame of Modbus TCP</source>
        <translation>%1, ein Telegramm von Modbus TCP</translation>
    </message>
    <message>
        <source>exception %1 (%2)</source>
        <translation>Ausnahme %1 (%2)</translation>
    </message>
    <message>
        <source>driver library: %1</source>
        <translation>Treiberbibliothek: %1</translation>
    </message>
    <message>
        <source>%1 answers with Modbus TCP frames; use %2</source>
        <translation>%1 antwortet mit Telegrammen von Modbus TCP; %2 nehmen</translation>
    </message>
    <message>
        <source>the connection to %1 is lost and no station has answered</source>
        <translation>die Verbindung zu %1 ist verloren und keine Station hat geantwortet</translation>
    </message>
    <message>
        <source>nothing came from %1</source>
        <translation>von %1 kam nichts</translation>
    </message>
    <message>
        <source>%1; if it is a Modbus TCP server, use %2</source>
        <translation>%1; ist es ein Modbus-TCP-Server, %2 nehmen</translation>
    </message>
    <message>
        <source>%1; if it passes the serial line's bytes on, use %2</source>
        <translation>%1; reicht es die Bytes der seriellen Leitung durch, %2 nehmen</translation>
    </message>
    <message>
        <source>%1; else it may be serving another program</source>
        <translation>%1; sonst bedient es vielleicht ein anderes Programm</translation>
    </message>
    <message>
        <source>must be a whole number of milliseconds from %1 to %2</source>
        <translation>muss eine ganze Zahl von Millisekunden von %1 bis %2 sein</translation>
    </message>
    <message>
        <source>must be a whole number of seconds from %1 to %2</source>
        <translation>muss eine ganze Zahl von Sekunden von %1 bis %2 sein</translation>
    </message>
    <message>
        <source>must be a whole number from %1 to %2</source>
        <translation>muss eine ganze Zahl von %1 bis %2 sein</translation>
    </message>
    <message>
        <source>--protocol %1: must be rtu or tcp</source>
        <translation>--protocol %1: muss rtu oder tcp sein</translation>
    </message>
    <message>
        <source>--protocol needs --tcp; a serial line carries Modbus RTU</source>
        <translation>--protocol braucht --tcp; eine serielle Leitung überträgt Modbus RTU</translation>
    </message>
    <message>
        <source>--tcp %1: must be HOST or HOST:PORT</source>
        <translation>--tcp %1: muss HOST oder HOST:PORT sein</translation>
    </message>
    <message>
        <source>%1; write an IPv6 address in brackets, [%2]</source>
        <translation>%1; eine IPv6-Adresse in Klammern schreiben, [%2]</translation>
    </message>
    <message>
        <source>--%1 needs --simulate; kxsim has the same option</source>
        <translation>--%1 braucht --simulate; kxsim hat dieselbe Option</translation>
    </message>
    <message>
        <source>only one of --port, --tcp and --simulate can be used</source>
        <translation>nur eines von --port, --tcp und --simulate geht</translation>
    </message>
    <message>
        <source>no line; name one with --port or --tcp, or use --simulate</source>
        <translation>keine Leitung; eine mit --port oder --tcp nennen oder --simulate nehmen</translation>
    </message>
    <message>
        <source>%1, or auto</source>
        <translation>%1, oder auto</translation>
    </message>
    <message>
        <source>--low-latency %1: must be yes or no</source>
        <translation>--low-latency %1: muss yes oder no sein</translation>
    </message>
    <message>
        <source>--rs485 needs --port</source>
        <translation>--rs485 braucht --port</translation>
    </message>
    <message>
        <source>--rs485 %1: must be on, or rts-before:MS, rts-after:MS (0 to %2 milliseconds) and rts-low, separated by commas</source>
        <translation>--rs485 %1: muss on sein, oder rts-before:MS, rts-after:MS (0 bis %2 Millisekunden) und rts-low, durch Kommas getrennt</translation>
    </message>
    <message>
        <source>--stations %1: '%2' is not a station (%3 to %4) or a range such as 1-20</source>
        <translation>--stations %1: „%2“ ist keine Station (%3 bis %4) und kein Bereich wie 1-20</translation>
    </message>
    <message>
        <source>simulated controllers</source>
        <translation>simulierte Steuerungen</translation>
    </message>
    <message>
        <source>cannot open a pseudo-terminal: %1</source>
        <translation>ein Pseudoterminal kann nicht geöffnet werden: %1</translation>
    </message>
    <message>
        <source>function %1</source>
        <translation>Funktion %1</translation>
    </message>
    <message>
        <source>read nothing</source>
        <translation>Lesen von nichts</translation>
    </message>
    <message>
        <source>write nothing</source>
        <translation>Schreiben von nichts</translation>
    </message>
    <message>
        <source>read %1</source>
        <translation>Lesen %1</translation>
    </message>
    <message>
        <source>write %1</source>
        <translation>Schreiben %1</translation>
    </message>
    <message>
        <source>a quote is not closed</source>
        <translation>ein Anführungszeichen ist nicht geschlossen</translation>
    </message>
    <message>
        <source>text follows a closing quote</source>
        <translation>Text folgt auf ein schließendes Anführungszeichen</translation>
    </message>
    <message>
        <source>commas</source>
        <translation>Kommas</translation>
    </message>
    <message>
        <source>semicolons</source>
        <translation>Semikolons</translation>
    </message>
    <message>
        <source>tabs</source>
        <translation>Tabulatoren</translation>
    </message>
    <message>
        <source>no header line; it is %1</source>
        <translation>keine Kopfzeile; sie lautet %1</translation>
    </message>
    <message>
        <source>no rows behind the header</source>
        <translation>keine Zeilen nach der Kopfzeile</translation>
    </message>
    <message>
        <source>the first line must be the header %1, separated by commas, semicolons or tabs</source>
        <translation>die erste Zeile muss die Kopfzeile %1 sein, getrennt durch Kommas, Semikolons oder Tabulatoren</translation>
    </message>
    <message>
        <source>unknown column '%1', separated by %2; the columns are %3</source>
        <translation>unbekannte Spalte „%1“, getrennt durch %2; die Spalten sind %3</translation>
    </message>
    <message>
        <source>the header has two columns '%1'</source>
        <translation>die Kopfzeile hat zwei Spalten „%1“</translation>
    </message>
    <message>
        <source>the header has no column '%1'; the columns are %2</source>
        <translation>die Kopfzeile hat keine Spalte „%1“; die Spalten sind %2</translation>
    </message>
    <message>
        <source>%1 separated by %2 instead of %3</source>
        <translation>%1, getrennt durch %2, statt %3</translation>
    </message>
    <message numerus="yes">
        <source>%1 fields</source>
        <translation>
            <numerusform>%1 Feld</numerusform>
            <numerusform>%1 Felder</numerusform>
        </translation>
    </message>
    <message>
        <source>damaged UTF-16; save the file as UTF-8</source>
        <translation>beschädigtes UTF-16; die Datei als UTF-8 speichern</translation>
    </message>
    <message>
        <source>column %1: %2; save the file as UTF-8</source>
        <translation>Spalte %1: %2; die Datei als UTF-8 speichern</translation>
    </message>
    <message>
        <source>a second byte-order mark</source>
        <translation>eine zweite Byte-Reihenfolge-Marke</translation>
    </message>
    <message>
        <source>a byte that is 0</source>
        <translation>ein Byte, das 0 ist</translation>
    </message>
    <message>
        <source>byte 0x%1 is not UTF-8</source>
        <translation>Byte 0x%1 ist kein UTF-8</translation>
    </message>
    <message>
        <source>%1 is an input and cannot be written</source>
        <translation>%1 ist ein Eingang und kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>%1 cannot be written; the bits of %2 change by themselves between the read and the write of the word, so write all of it</source>
        <translation>%1 kann nicht geschrieben werden; die Bits von %2 ändern sich von selbst zwischen dem Lesen und dem Schreiben des Worts, daher das ganze Wort schreiben</translation>
    </message>
    <message>
        <source>%1; nor is it the name of a tag</source>
        <translation>%1; und keine Variable heißt so</translation>
    </message>
    <message>
        <source>must be %1 to %2</source>
        <translation>muss %1 bis %2 sein</translation>
    </message>
    <message>
        <source>must be 1 or more</source>
        <translation>muss 1 oder mehr sein</translation>
    </message>
    <message>
        <source>the tag has no address</source>
        <translation>die Variable hat keine Adresse</translation>
    </message>
    <message>
        <source>count, station and format have columns of their own</source>
        <translation>Anzahl, Station und Format haben eigene Spalten</translation>
    </message>
    <message>
        <source>must be a time from 0 to 1440min, such as 500ms, 10s or 5min</source>
        <translation>muss eine Zeit von 0 bis 1440min sein, etwa 500ms, 10s oder 5min</translation>
    </message>
    <message>
        <source>the tag has no name</source>
        <translation>die Variable hat keinen Namen</translation>
    </message>
    <message>
        <source>the name '%1' is taken by line %2</source>
        <translation>der Name „%1“ ist von Zeile %2 vergeben</translation>
    </message>
    <message>
        <source>is a folder, not a file</source>
        <translation>ist ein Ordner, keine Datei</translation>
    </message>
    <message>
        <source>is a pipe; write its text into a file first</source>
        <translation>ist eine Pipe; ihren Text zuerst in eine Datei schreiben</translation>
    </message>
    <message>
        <source>larger than %1 MiB, the most that such a file may have</source>
        <translation>größer als %1 MiB, mehr darf eine solche Datei nicht haben</translation>
    </message>
    <message>
        <source>a value takes %1 registers; raise --max-words, which is %2</source>
        <translation>ein Wert braucht %1 Register; --max-words erhöhen, das %2 ist</translation>
    </message>
    <message>
        <source>not wanted any more</source>
        <translation>nicht mehr gewünscht</translation>
    </message>
    <message>
        <source>the session does not run</source>
        <translation>die Sitzung läuft nicht</translation>
    </message>
    <message>
        <source>the words do not fit into the recipe buffer</source>
        <translation>die Wörter passen nicht in den Rezeptpuffer</translation>
    </message>
    <message>
        <source>answered with %1</source>
        <translation>antwortete mit: %1</translation>
    </message>
    <message>
        <source>answered with another or a late reply</source>
        <translation>antwortete mit einer anderen oder verspäteten Antwort</translation>
    </message>
    <message>
        <source>answered</source>
        <translation>antwortete</translation>
    </message>
    <message>
        <source>a wrong byte count</source>
        <translation>falsche Bytezahl</translation>
    </message>
    <message>
        <source>station %1: %2</source>
        <translation>Station %1: %2</translation>
    </message>
    <message>
        <source>%1 and %2 give %3@%4 different values: %5 and %6</source>
        <translation>%1 und %2 geben %3@%4 verschiedene Werte: %5 und %6</translation>
    </message>
    <message>
        <source>line %1</source>
        <translation>Zeile %1</translation>
    </message>
    <message>
        <source>line %1 (%2)</source>
        <translation>Zeile %1 (%2)</translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>the rows need %1 words of the recipe buffer, which holds %2</source>
        <translation>die Zeilen brauchen %1 Wörter des Rezeptpuffers, der %2 fasst</translation>
    </message>
    <message>
        <source>%1: values that share registers are of one request, and those from here on take more than %2</source>
        <translation>%1: Werte mit gemeinsamen Registern gehören in eine Anfrage, und die ab hier brauchen mehr als %2</translation>
    </message>
    <message>
        <source>no value for %1</source>
        <translation>kein Wert für %1</translation>
    </message>
    <message>
        <source>%1 is one bit of a word, and a recipe holds whole values; take %2 with format bin or hex</source>
        <translation>%1 ist ein Bit eines Worts, und ein Rezept enthält ganze Werte; %2 mit Format bin oder hex nehmen</translation>
    </message>
    <message>
        <source>'%1' is not an address; write its number, of X and Y in octal</source>
        <translation>„%1“ ist keine Adresse; ihre Nummer schreiben, bei X und Y oktal</translation>
    </message>
    <message>
        <source>unknown register '%1'; the types are %2</source>
        <translation>unbekanntes Register „%1“; die Arten sind %2</translation>
    </message>
    <message>
        <source>'%1' is a format and no type; it belongs into the column format</source>
        <translation>„%1“ ist ein Format und kein Typ; es gehört in die Spalte format</translation>
    </message>
    <message>
        <source>unknown type '%1'; the types are %2</source>
        <translation>unbekannter Typ „%1“; die Typen sind %2</translation>
    </message>
    <message>
        <source>type %1 does not suit register %2</source>
        <translation>Typ %1 passt nicht zu Register %2</translation>
    </message>
    <message>
        <source>goes with a format, and the row has type %1</source>
        <translation>gehört zu einem Format, und die Zeile hat Typ %1</translation>
    </message>
    <message>
        <source>the row has no address</source>
        <translation>die Zeile hat keine Adresse</translation>
    </message>
    <message>
        <source>the row has no address, and '%1' is no tag</source>
        <translation>die Zeile hat keine Adresse, und „%1“ ist keine Variable</translation>
    </message>
    <message>
        <source>the tag '%1' says that</source>
        <translation>das sagt schon die Variable „%1“</translation>
    </message>
    <message>
        <source>the tag '%1' has %2 values, and a row one</source>
        <translation>die Variable „%1“ hat %2 Werte, und eine Zeile einen</translation>
    </message>
    <message>
        <source>station and format have columns of their own</source>
        <translation>Station und Format haben eigene Spalten</translation>
    </message>
    <message>
        <source>takes no whole block of at most %1</source>
        <translation>nimmt keinen ganzen Block von höchstens %1</translation>
    </message>
    <message>
        <source>only the first of its registers would be uploaded</source>
        <translation>nur das erste seiner Register würde gelesen</translation>
    </message>
    <message>
        <source>its words lie outside the recipe buffer</source>
        <translation>seine Wörter liegen außerhalb des Rezeptpuffers</translation>
    </message>
    <message>
        <source>its words do not follow those of its neighbour</source>
        <translation>seine Wörter folgen nicht auf die seines Nachbarn</translation>
    </message>
    <message>
        <source>must not be uploaded in one pass with joined registers</source>
        <translation>darf nicht zusammen mit verbundenen Registern in einem Durchgang gelesen werden</translation>
    </message>
    <message>
        <source>nothing to transfer</source>
        <translation>nichts zu übertragen</translation>
    </message>
    <message>
        <source>does not fit into one request of at most %1 registers</source>
        <translation>passt nicht in eine Anfrage von höchstens %1 Registern</translation>
    </message>
    <message>
        <source>an input, which cannot be written</source>
        <translation>ein Eingang, der nicht geschrieben werden kann</translation>
    </message>
    <message>
        <source>values of %1 registers do not make %2</source>
        <translation>Werte zu %1 Registern ergeben nicht %2</translation>
    </message>
    <message>
        <source>no request reads a value of %1 coils</source>
        <translation>keine Anfrage liest einen Wert von %1 Coils</translation>
    </message>
    <message>
        <source>no request reads a value of %1 registers</source>
        <translation>keine Anfrage liest einen Wert von %1 Registern</translation>
    </message>
    <message>
        <source>the registers of the value at %1 lie apart</source>
        <translation>die Register des Werts ab %1 liegen auseinander</translation>
    </message>
    <message>
        <source>no such register type</source>
        <translation>keine solche Registerart</translation>
    </message>
    <message>
        <source>out of range; there are %1</source>
        <translation>außerhalb des Bereichs; es gibt %1</translation>
    </message>
    <message>
        <source>takes %1 from %2 to %3</source>
        <translation>nimmt %1 von %2 bis %3</translation>
    </message>
    <message>
        <source>one bit of a word, which has to be read first</source>
        <translation>ein Bit eines Worts, das zuerst gelesen werden muss</translation>
    </message>
    <message>
        <source>the session has ended</source>
        <translation>die Sitzung ist beendet</translation>
    </message>
    <message>
        <source>the driver was initialised again</source>
        <translation>der Treiber wurde neu initialisiert</translation>
    </message>
    <message>
        <source>address %1</source>
        <translation>Adresse %1</translation>
    </message>
    <message>
        <source>quantity %1</source>
        <translation>Anzahl %1</translation>
    </message>
    <message>
        <source>value %1</source>
        <translation>Wert %1</translation>
    </message>
    <message>
        <source>byte count %1</source>
        <translation>Bytezahl %1</translation>
    </message>
    <message>
        <source>data %1</source>
        <translation>Daten %1</translation>
    </message>
    <message>
        <source>exception %1</source>
        <translation>Ausnahme %1</translation>
    </message>
    <message>
        <source>station %1</source>
        <translation>Station %1</translation>
    </message>
    <message>
        <source>CRC %1</source>
        <translation>CRC %1</translation>
    </message>
    <message>
        <source>bytes in no frame (%1)</source>
        <translation>Bytes in keinem Telegramm (%1)</translation>
    </message>
    <message>
        <source>cut short: %1 of %2 bytes</source>
        <translation>abgeschnitten: %1 von %2 Byte</translation>
    </message>
    <message>
        <source>%1 bytes instead of %2</source>
        <translation>%1 Byte statt %2</translation>
    </message>
    <message>
        <source>the reply once more</source>
        <translation>die Antwort noch einmal</translation>
    </message>
    <message>
        <source>reply of station %1</source>
        <translation>Antwort von Station %1</translation>
    </message>
    <message>
        <source>reply to function %1</source>
        <translation>Antwort auf Funktion %1</translation>
    </message>
    <message>
        <source>echo of the request</source>
        <translation>Echo der Anfrage</translation>
    </message>
    <message>
        <source>the reply</source>
        <translation>die Antwort</translation>
    </message>
    <message>
        <source>%1, then %2</source>
        <translation>%1, dann %2</translation>
    </message>
    <message>
        <source>accepted</source>
        <translation>angenommen</translation>
    </message>
    <message>
        <source>repeated</source>
        <translation>wiederholt</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>fehlgeschlagen</translation>
    </message>
    <message>
        <source>ignored</source>
        <translation>nicht beachtet</translation>
    </message>
    <message>
        <source>%1 request %2 (again)</source>
        <translation>%1 Anfrage %2 (noch einmal)</translation>
    </message>
    <message>
        <source>%1 request %2</source>
        <translation>%1 Anfrage %2</translation>
    </message>
    <message>
        <source>%1 reply   %2</source>
        <translation>%1 Antwort %2</translation>
    </message>
    <message>
        <source>%1 requests/s</source>
        <translation>%1 Anfragen/s</translation>
    </message>
    <message>
        <source>%1 requests/s, line load %2 %</source>
        <translation>%1 Anfragen/s, Leitungslast %2 %</translation>
    </message>
    <message>
        <source>a backslash begins \\ \" \n \r \t \, or \x and two hexadecimal digits</source>
        <translation>ein Backslash beginnt \\ \" \n \r \t \, oder \x und zwei Hexadezimalziffern</translation>
    </message>
    <message>
        <source>'%1' is not a decimal number</source>
        <translation>„%1“ ist keine Dezimalzahl</translation>
    </message>
    <message>
        <source>%1 does not fit; it is beyond the highest number</source>
        <translation>%1 passt nicht; es liegt jenseits der höchsten Zahl</translation>
    </message>
    <message>
        <source>%1 does not fit; it is nearer to 0 than any number</source>
        <translation>%1 passt nicht; es liegt näher an 0 als jede Zahl</translation>
    </message>
    <message>
        <source>ascii needs its registers, 1 to %1, such as ascii:8</source>
        <translation>ascii braucht seine Register, 1 bis %1, etwa ascii:8</translation>
    </message>
    <message>
        <source>must be a decimal number such as 12.5</source>
        <translation>muss eine Dezimalzahl mit Punkt sein, etwa 12.5</translation>
    </message>
    <message>
        <source>'%1' is no option of a format here; they are low or high, swapped, decimals=N, min=NUMBER, max=NUMBER and, last, unit=TEXT</source>
        <translation>„%1“ ist hier keine Option eines Formats; es gibt low oder high, swapped, decimals=N, min=ZAHL, max=ZAHL und, zuletzt, unit=TEXT</translation>
    </message>
    <message>
        <source>%1 is given twice</source>
        <translation>%1 ist zweimal angegeben</translation>
    </message>
    <message>
        <source>unknown format '%1'; the formats are %2</source>
        <translation>unbekanntes Format „%1“; die Formate sind %2</translation>
    </message>
    <message>
        <source>must be low, high, swapped, 'low swapped' or 'high swapped'</source>
        <translation>muss low, high, swapped, „low swapped“ oder „high swapped“ sein</translation>
    </message>
    <message>
        <source>must not be 0, and have at most %1 digits</source>
        <translation>darf nicht 0 sein und höchstens %1 Ziffern haben</translation>
    </message>
    <message>
        <source>must be 0 to %1</source>
        <translation>muss 0 bis %1 sein</translation>
    </message>
    <message>
        <source>'%1' is not a format; write KIND[*SCALE][+OFFSET][,OPTION]..., such as s16*0.1+5 or u32,high</source>
        <translation>„%1“ ist kein Format; ART[*FAKTOR][+VERSATZ][,OPTION]... schreiben, etwa s16*0.1+5 oder u32,high</translation>
    </message>
    <message>
        <source>'%1' is not a bit of a word; they are 0 to %2</source>
        <translation>„%1“ ist kein Bit eines Worts; es gibt 0 bis %2</translation>
    </message>
    <message>
        <source>one bit of a word has no format</source>
        <translation>ein Bit eines Worts hat kein Format</translation>
    </message>
    <message>
        <source>the value runs past the last address; the addresses are %1</source>
        <translation>der Wert reicht über die letzte Adresse hinaus; die Adressen sind %1</translation>
    </message>
    <message>
        <source>the value runs past the last address, %1 registers each; the addresses are %2</source>
        <translation>der Wert mit %1 Registern reicht über die letzte Adresse hinaus; die Adressen sind %2</translation>
    </message>
    <message>
        <source>%1 values run past the last address, %2 registers each; the addresses are %3</source>
        <translation>%1 Werte mit je %2 Registern reichen über die letzte Adresse hinaus; die Adressen sind %3</translation>
    </message>
    <message>
        <source>one bit of a word has no count</source>
        <translation>ein Bit eines Worts hat keine Anzahl</translation>
    </message>
    <message>
        <source>'%1' does not fit; it has %2 bytes, and the registers hold %3</source>
        <translation>„%1“ passt nicht; es hat %2 Byte, und die Register fassen %3</translation>
    </message>
    <message>
        <source>%1 is refused; it must be at least %2</source>
        <translation>%1 wird abgelehnt; es muss mindestens %2 sein</translation>
    </message>
    <message>
        <source>%1 is refused; it must be at most %2</source>
        <translation>%1 wird abgelehnt; es darf höchstens %2 sein</translation>
    </message>
    <message>
        <source>%1 is refused; it must be at least %2 and at most %3</source>
        <translation>%1 wird abgelehnt; es muss mindestens %2 und darf höchstens %3 sein</translation>
    </message>
    <message>
        <source>%1 holds bits, which have no format but bit</source>
        <translation>%1 enthält Bits, die kein Format außer bit haben</translation>
    </message>
    <message>
        <source>%1 holds 32-bit counters, whose formats are u32 and s32</source>
        <translation>%1 enthält 32-Bit-Zähler, deren Formate u32 und s32 sind</translation>
    </message>
    <message>
        <source>%1 holds words; name one bit as in %1%2.5</source>
        <translation>%1 enthält Wörter; ein Bit nennen, etwa %1%2.5</translation>
    </message>
    <message>
        <source>low and high are for numbers of several registers</source>
        <translation>low und high sind für Zahlen aus mehreren Registern</translation>
    </message>
    <message>
        <source>swapped is for words with a format of their own</source>
        <translation>swapped ist für Wörter mit eigenem Format</translation>
    </message>
    <message>
        <source>with decimals %1 values %2 apart look alike; take %3 or more</source>
        <translation>mit decimals %1 sehen Werte im Abstand %2 gleich aus; %3 oder mehr nehmen</translation>
    </message>
    <message>
        <source>hex values have no scale, offset, decimals, min or max</source>
        <translation>hex-Werte haben kein scale, offset, decimals, min oder max</translation>
    </message>
    <message>
        <source>bin values have no scale, offset, decimals, min or max</source>
        <translation>bin-Werte haben kein scale, offset, decimals, min oder max</translation>
    </message>
    <message>
        <source>text has no scale, offset, decimals, min or max</source>
        <translation>Text hat kein scale, offset, decimals, min oder max</translation>
    </message>
    <message>
        <source>bits have no scale, offset, decimals, min or max</source>
        <translation>Bits haben kein scale, offset, decimals, min oder max</translation>
    </message>
    <message>
        <source>the scale must not be 0, and have at most %1 digits</source>
        <translation>der Faktor darf nicht 0 sein und höchstens %1 Ziffern haben</translation>
    </message>
    <message>
        <source>min %1 is above max %2</source>
        <translation>min %1 liegt über max %2</translation>
    </message>
    <message>
        <source>the value from %1 to %2 lies on both sides of a gap in the controller's registers</source>
        <translation>der Wert von %1 bis %2 liegt beiderseits einer Lücke in den Registern der Steuerung</translation>
    </message>
    <message>
        <source>'%1' is not a decimal, 0x hexadecimal or 0b binary number</source>
        <translation>„%1“ ist keine dezimale, 0x-hexadezimale oder 0b-binäre Zahl</translation>
    </message>
    <message>
        <source>%1 does not fit; it is too long</source>
        <translation>%1 passt nicht; es ist zu lang</translation>
    </message>
    <message>
        <source>%1 is between two steps of %2; the nearest is %3</source>
        <translation>%1 liegt zwischen zwei Schritten von %2; der nächste ist %3</translation>
    </message>
    <message>
        <source>%1 does not fit; one bit of a word takes %2 to %3</source>
        <translation>%1 passt nicht; ein Bit eines Worts nimmt %2 bis %3</translation>
    </message>
    <message>
        <source>station %1 refuses requests; it is asked for at most %2 or %3 at once</source>
        <translation>Station %1 lehnt Anfragen ab; sie wird nach höchstens %2 oder %3 auf einmal gefragt</translation>
    </message>
    <message>
        <source>station %1 refuses requests; it is asked for at most %2 or %3 at once; addresses between are not read along</source>
        <translation>Station %1 lehnt Anfragen ab; sie wird nach höchstens %2 oder %3 auf einmal gefragt; Adressen dazwischen werden nicht mitgelesen</translation>
    </message>
    <message numerus="yes">
        <source>%1 registers</source>
        <translation>
            <numerusform>%1 Register</numerusform>
            <numerusform>%1 Registern</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 coils</source>
        <translation>
            <numerusform>%1 Coil</numerusform>
            <numerusform>%1 Coils</numerusform>
        </translation>
    </message>
    <message>
        <source>line open again</source>
        <translation>Leitung wieder offen</translation>
    </message>
    <message>
        <source>line never silent</source>
        <translation>Leitung nie in Ruhe</translation>
    </message>
    <message>
        <source>line silent again</source>
        <translation>Leitung wieder in Ruhe</translation>
    </message>
    <message>
        <source>station %1 does not answer</source>
        <translation>Station %1 antwortet nicht</translation>
    </message>
    <message>
        <source>stations %1 do not answer</source>
        <translation>Stationen %1 antworten nicht</translation>
    </message>
    <message>
        <source>station %1 answers again</source>
        <translation>Station %1 antwortet wieder</translation>
    </message>
    <message>
        <source>is no recording; kxhost record makes them</source>
        <translation>ist keine Aufzeichnung; kxhost record macht sie</translation>
    </message>
    <message>
        <source>the row is longer than %1 MiB</source>
        <translation>die Zeile ist länger als %1 MiB</translation>
    </message>
    <message>
        <source>%1: the last row is cut off and left out</source>
        <translation>%1: die letzte Zeile ist abgeschnitten und weggelassen</translation>
    </message>
    <message>
        <source>%1 is no number of %2</source>
        <translation>%1 ist keine Zahl von %2</translation>
    </message>
    <message>
        <source>%1 instead of %2</source>
        <translation>%1 statt %2</translation>
    </message>
    <message>
        <source>the time is wrong</source>
        <translation>die Zeit ist falsch</translation>
    </message>
    <message>
        <source>the gaps are wrong</source>
        <translation>die Lücken sind falsch</translation>
    </message>
    <message>
        <source>cannot be written: %1</source>
        <translation>kann nicht geschrieben werden: %1</translation>
    </message>
    <message>
        <source>holds something else than a recording of these tags; name another file, or move this one away</source>
        <translation>enthält etwas anderes als eine Aufzeichnung dieser Variablen; eine andere Datei nennen oder diese wegräumen</translation>
    </message>
    <message>
        <source>its last row cannot be read: %1</source>
        <translation>die letzte Zeile kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>%1: cannot go on recording: %2</source>
        <translation>%1: die Aufzeichnung kann nicht weitergehen: %2</translation>
    </message>
    <message>
        <source>not yet read</source>
        <translation>noch nicht gelesen</translation>
    </message>
    <message>
        <source>not read</source>
        <translation>nicht gelesen</translation>
    </message>
    <message>
        <source>no answer</source>
        <translation>keine Antwort</translation>
    </message>
    <message>
        <source>refused</source>
        <translation>abgelehnt</translation>
    </message>
    <message>
        <source>recorder stopped</source>
        <translation>Aufzeichnung beendet</translation>
    </message>
    <message>
        <source>another program records into it</source>
        <translation>ein anderes Programm zeichnet darin auf</translation>
    </message>
    <message>
        <source>Qt's plug-in for SQLite is missing; install libqt%1sql%1-sqlite, or use a .csv file</source>
        <translation>Qts Plug-in für SQLite fehlt; libqt%1sql%1-sqlite installieren oder eine .csv-Datei nehmen</translation>
    </message>
    <message>
        <source>cannot be read: %1</source>
        <translation>kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>cannot be read: its end is cut off</source>
        <translation>kann nicht gelesen werden: das Ende ist abgeschnitten</translation>
    </message>
    <message>
        <source>a row of %1 is wrong</source>
        <translation>eine Zeile von %1 ist falsch</translation>
    </message>
    <message>
        <source>%1; name another file</source>
        <translation>%1; eine andere Datei nennen</translation>
    </message>
    <message>
        <source>it holds something else; name another file</source>
        <translation>sie enthält etwas anderes; eine andere Datei nennen</translation>
    </message>
    <message>
        <source>%1: cannot be recorded into: %2</source>
        <translation>%1: hierin kann nicht aufgezeichnet werden: %2</translation>
    </message>
    <message>
        <source>--parity %1: must be none, even or odd</source>
        <translation>--parity %1: muss none, even oder odd sein</translation>
    </message>
    <message>
        <source>--data-bits %1: Modbus RTU needs 8 data bits</source>
        <translation>--data-bits %1: Modbus RTU braucht 8 Datenbits</translation>
    </message>
    <message>
        <source>; only its owner %1 may open it</source>
        <translation>; nur ihr Eigentümer %1 darf sie öffnen</translation>
    </message>
    <message>
        <source>; it is for members of the group %1: sudo usermod -aG %1 $USER, then log in again</source>
        <translation>; sie ist für Mitglieder der Gruppe %1: sudo usermod -aG %1 $USER, dann neu anmelden</translation>
    </message>
</context>
</TS>
