<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>Appcast</name>
    <message>
        <source>line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>the elements are nested too deeply</source>
        <translation>die Elemente sind zu tief verschachtelt</translation>
    </message>
    <message>
        <source>this is no RSS</source>
        <translation>das ist kein RSS</translation>
    </message>
    <message>
        <source>longer than %1 bytes</source>
        <translation>länger als %1 Bytes</translation>
    </message>
    <message>
        <source>this is no UTF-8</source>
        <translation>das ist kein UTF-8</translation>
    </message>
    <message>
        <source>a document type is not allowed</source>
        <translation>ein Dokumenttyp ist nicht erlaubt</translation>
    </message>
</context>
<context>
    <name>Engine</name>
    <message>
        <source>Favorites</source>
        <translation>Favoriten</translation>
    </message>
    <message>
        <source>Case Conversion</source>
        <translation>Groß und klein</translation>
    </message>
    <message>
        <source>Add &amp; Remove</source>
        <translation>Hinzu und weg</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>Sorting</source>
        <translation>Sortieren</translation>
    </message>
    <message>
        <source>Find &amp; Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Encoding</source>
        <translation>Kodierung</translation>
    </message>
    <message>
        <source>UPPERCASE</source>
        <translation>GROSSBUCHSTABEN</translation>
    </message>
    <message>
        <source>Convert all text to uppercase</source>
        <translation>Alles in Großbuchstaben</translation>
    </message>
    <message>
        <source>lowercase</source>
        <translation>kleinbuchstaben</translation>
    </message>
    <message>
        <source>Convert all text to lowercase</source>
        <translation>Alles in Kleinbuchstaben</translation>
    </message>
    <message>
        <source>Title Case</source>
        <translation>Wortanfänge Groß</translation>
    </message>
    <message>
        <source>Capitalize The First Letter Of Each Word</source>
        <translation>Den Ersten Buchstaben Jedes Wortes Groß</translation>
    </message>
    <message>
        <source>Sentence case</source>
        <translation>Satzanfänge groß</translation>
    </message>
    <message>
        <source>Capitalize first letter of sentences</source>
        <translation>Den ersten Buchstaben der Sätze groß</translation>
    </message>
    <message>
        <source>camelCase</source>
        <translation>camelCase</translation>
    </message>
    <message>
        <source>Convert to camelCase format</source>
        <translation>In die Form camelCase bringen</translation>
    </message>
    <message>
        <source>PascalCase</source>
        <translation>PascalCase</translation>
    </message>
    <message>
        <source>Convert to PascalCase format</source>
        <translation>In die Form PascalCase bringen</translation>
    </message>
    <message>
        <source>snake_case</source>
        <translation>snake_case</translation>
    </message>
    <message>
        <source>Convert to snake_case format</source>
        <translation>In die Form snake_case bringen</translation>
    </message>
    <message>
        <source>kebab-case</source>
        <translation>kebab-case</translation>
    </message>
    <message>
        <source>Convert to kebab-case format</source>
        <translation>In die Form kebab-case bringen</translation>
    </message>
    <message>
        <source>aLtErNaTiNg CaSe</source>
        <translation>aBwEcHsElNd</translation>
    </message>
    <message>
        <source>Alternate between upper and lower case</source>
        <translation>Abwechselnd groß und klein</translation>
    </message>
    <message>
        <source>iNVERT cASE</source>
        <translation>uMGEKEHRT</translation>
    </message>
    <message>
        <source>Swap uppercase and lowercase</source>
        <translation>Groß und klein vertauschen</translation>
    </message>
    <message>
        <source>Add Prefix</source>
        <translation>Voranstellen</translation>
    </message>
    <message>
        <source>Add text to the beginning of each line</source>
        <translation>Text an den Anfang jeder Zeile</translation>
    </message>
    <message>
        <source>Prefix</source>
        <translation>Davor</translation>
    </message>
    <message>
        <source>Enter prefix text...</source>
        <translation>Text vor jeder Zeile...</translation>
    </message>
    <message>
        <source>Add Suffix</source>
        <translation>Anhängen</translation>
    </message>
    <message>
        <source>Add text to the end of each line</source>
        <translation>Text an das Ende jeder Zeile</translation>
    </message>
    <message>
        <source>Suffix</source>
        <translation>Dahinter</translation>
    </message>
    <message>
        <source>Enter suffix text...</source>
        <translation>Text nach jeder Zeile...</translation>
    </message>
    <message>
        <source>Remove Extra Whitespace</source>
        <translation>Überzähligen Leerraum entfernen</translation>
    </message>
    <message>
        <source>Remove extra spaces and tabs</source>
        <translation>Überzählige Leerzeichen und Tabs</translation>
    </message>
    <message>
        <source>Remove All Spaces</source>
        <translation>Alle Leerzeichen entfernen</translation>
    </message>
    <message>
        <source>Remove every space character</source>
        <translation>Jedes Leerzeichen entfernen</translation>
    </message>
    <message>
        <source>Remove Tabs</source>
        <translation>Tabs entfernen</translation>
    </message>
    <message>
        <source>Remove all tab characters</source>
        <translation>Alle Tabulatorzeichen entfernen</translation>
    </message>
    <message>
        <source>Remove Empty Lines</source>
        <translation>Leere Zeilen entfernen</translation>
    </message>
    <message>
        <source>Delete all blank lines</source>
        <translation>Alle leeren Zeilen löschen</translation>
    </message>
    <message>
        <source>Remove Line Breaks</source>
        <translation>Zeilenumbrüche entfernen</translation>
    </message>
    <message>
        <source>Join all lines into one</source>
        <translation>Alle Zeilen zu einer verbinden</translation>
    </message>
    <message>
        <source>Remove Duplicate Lines</source>
        <translation>Doppelte Zeilen entfernen</translation>
    </message>
    <message>
        <source>Keep only unique lines</source>
        <translation>Jede Zeile nur einmal behalten</translation>
    </message>
    <message>
        <source>Remove Duplicate Words</source>
        <translation>Doppelte Wörter entfernen</translation>
    </message>
    <message>
        <source>Keep only unique words</source>
        <translation>Jedes Wort nur einmal behalten</translation>
    </message>
    <message>
        <source>Delete Non-Alphanumeric</source>
        <translation>Nur Buchstaben und Ziffern</translation>
    </message>
    <message>
        <source>Remove all non-alphanumeric characters</source>
        <translation>Alles außer Buchstaben und Ziffern weg</translation>
    </message>
    <message>
        <source>Delete Numeric Characters</source>
        <translation>Ziffern löschen</translation>
    </message>
    <message>
        <source>Remove all numbers</source>
        <translation>Alle Zahlen entfernen</translation>
    </message>
    <message>
        <source>Keep Only Numbers</source>
        <translation>Nur Zahlen behalten</translation>
    </message>
    <message>
        <source>Remove everything except numbers</source>
        <translation>Alles außer Zahlen entfernen</translation>
    </message>
    <message>
        <source>Remove Punctuation</source>
        <translation>Satzzeichen entfernen</translation>
    </message>
    <message>
        <source>Remove all punctuation marks</source>
        <translation>Alle Satzzeichen entfernen</translation>
    </message>
    <message>
        <source>Remove Special Characters</source>
        <translation>Sonderzeichen entfernen</translation>
    </message>
    <message>
        <source>Keep only letters, numbers, and spaces</source>
        <translation>Nur Buchstaben, Zahlen und Leerzeichen</translation>
    </message>
    <message>
        <source>Wrap Lines</source>
        <translation>Zeilen umbrechen</translation>
    </message>
    <message>
        <source>Wrap text at specified width</source>
        <translation>Text bei einer Breite umbrechen</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Characters per line...</source>
        <translation>Zeichen je Zeile...</translation>
    </message>
    <message>
        <source>Trim Lines</source>
        <translation>Zeilenränder kürzen</translation>
    </message>
    <message>
        <source>Remove leading/trailing whitespace from each line</source>
        <translation>Leerraum an den Zeilenenden entfernen</translation>
    </message>
    <message>
        <source>Number Lines</source>
        <translation>Zeilen nummerieren</translation>
    </message>
    <message>
        <source>Add line numbers to each line</source>
        <translation>Nummer vor jede Zeile setzen</translation>
    </message>
    <message>
        <source>Break After Every Word</source>
        <translation>Umbruch nach jedem Wort</translation>
    </message>
    <message>
        <source>Add line break after each word</source>
        <translation>Jedes Wort auf eine Zeile</translation>
    </message>
    <message>
        <source>Break After Every Sentence</source>
        <translation>Umbruch nach jedem Satz</translation>
    </message>
    <message>
        <source>Add line break after each sentence</source>
        <translation>Jeden Satz auf eine Zeile</translation>
    </message>
    <message>
        <source>Delete Lines Containing...</source>
        <translation>Zeilen löschen mit...</translation>
    </message>
    <message>
        <source>Remove lines that contain specific text</source>
        <translation>Zeilen mit diesem Text entfernen</translation>
    </message>
    <message>
        <source>Text to find</source>
        <translation>Gesuchter Text</translation>
    </message>
    <message>
        <source>Lines containing this will be deleted...</source>
        <translation>Zeilen damit werden gelöscht...</translation>
    </message>
    <message>
        <source>Delete Lines Starting With...</source>
        <translation>Zeilen löschen, am Anfang...</translation>
    </message>
    <message>
        <source>Remove lines that start with specific text</source>
        <translation>Zeilen, die so beginnen, entfernen</translation>
    </message>
    <message>
        <source>Lines starting with this will be deleted...</source>
        <translation>Zeilen, die so beginnen, werden gelöscht...</translation>
    </message>
    <message>
        <source>Keep Lines Containing...</source>
        <translation>Zeilen behalten mit...</translation>
    </message>
    <message>
        <source>Keep only lines that contain specific text</source>
        <translation>Nur Zeilen mit diesem Text</translation>
    </message>
    <message>
        <source>Only lines containing this will be kept...</source>
        <translation>Nur Zeilen damit bleiben...</translation>
    </message>
    <message>
        <source>Keep Lines Starting With...</source>
        <translation>Zeilen behalten, am Anfang...</translation>
    </message>
    <message>
        <source>Keep only lines that start with specific text</source>
        <translation>Nur Zeilen, die so beginnen</translation>
    </message>
    <message>
        <source>Only lines starting with this will be kept...</source>
        <translation>Nur Zeilen, die so beginnen, bleiben...</translation>
    </message>
    <message>
        <source>Reverse Lines Order</source>
        <translation>Zeilenfolge umkehren</translation>
    </message>
    <message>
        <source>Reverse the order of lines</source>
        <translation>Die letzte Zeile zuerst</translation>
    </message>
    <message>
        <source>Delete First N Lines</source>
        <translation>Erste N Zeilen löschen</translation>
    </message>
    <message>
        <source>Remove first N lines from text</source>
        <translation>Die ersten N Zeilen entfernen</translation>
    </message>
    <message>
        <source>Number of lines</source>
        <translation>Zahl der Zeilen</translation>
    </message>
    <message>
        <source>How many lines to delete...</source>
        <translation>So viele Zeilen löschen...</translation>
    </message>
    <message>
        <source>Delete Last N Lines</source>
        <translation>Letzte N Zeilen löschen</translation>
    </message>
    <message>
        <source>Remove last N lines from text</source>
        <translation>Die letzten N Zeilen entfernen</translation>
    </message>
    <message>
        <source>Keep First N Lines</source>
        <translation>Erste N Zeilen behalten</translation>
    </message>
    <message>
        <source>Keep only first N lines</source>
        <translation>Nur die ersten N Zeilen</translation>
    </message>
    <message>
        <source>How many lines to keep...</source>
        <translation>So viele Zeilen behalten...</translation>
    </message>
    <message>
        <source>Keep Last N Lines</source>
        <translation>Letzte N Zeilen behalten</translation>
    </message>
    <message>
        <source>Keep only last N lines</source>
        <translation>Nur die letzten N Zeilen</translation>
    </message>
    <message>
        <source>Extract Lines by Range</source>
        <translation>Zeilen von bis</translation>
    </message>
    <message>
        <source>Extract lines from X to Y</source>
        <translation>Nur die Zeilen von X bis Y</translation>
    </message>
    <message>
        <source>Start line</source>
        <translation>Von Zeile</translation>
    </message>
    <message>
        <source>First line number...</source>
        <translation>Nummer der ersten Zeile...</translation>
    </message>
    <message>
        <source>End line</source>
        <translation>Bis Zeile</translation>
    </message>
    <message>
        <source>Last line number...</source>
        <translation>Nummer der letzten Zeile...</translation>
    </message>
    <message>
        <source>Join Lines</source>
        <translation>Zeilen verbinden</translation>
    </message>
    <message>
        <source>Join all lines with custom separator</source>
        <translation>Alle Zeilen mit einem Trenner verbinden</translation>
    </message>
    <message>
        <source>Separator</source>
        <translation>Trenner</translation>
    </message>
    <message>
        <source>Text to join lines with...</source>
        <translation>Text zwischen den Zeilen...</translation>
    </message>
    <message>
        <source>Sort Lines Alphabetically</source>
        <translation>Zeilen alphabetisch sortieren</translation>
    </message>
    <message>
        <source>Sort lines in alphabetical order</source>
        <translation>Zeilen in alphabetischer Folge</translation>
    </message>
    <message>
        <source>Sort Lines (Reverse)</source>
        <translation>Zeilen sortieren (rückwärts)</translation>
    </message>
    <message>
        <source>Sort lines in reverse alphabetical order</source>
        <translation>In umgekehrter alphabetischer Folge</translation>
    </message>
    <message>
        <source>Sort Lines by Length</source>
        <translation>Zeilen nach Länge sortieren</translation>
    </message>
    <message>
        <source>Sort lines by their length</source>
        <translation>Die kürzeste Zeile zuerst</translation>
    </message>
    <message>
        <source>Shuffle Lines</source>
        <translation>Zeilen mischen</translation>
    </message>
    <message>
        <source>Randomly shuffle all lines</source>
        <translation>Alle Zeilen zufällig mischen</translation>
    </message>
    <message>
        <source>Sort Words Alphabetically</source>
        <translation>Wörter alphabetisch sortieren</translation>
    </message>
    <message>
        <source>Sort individual words in alphabetical order</source>
        <translation>Einzelne Wörter in alphabetischer Folge</translation>
    </message>
    <message>
        <source>Reverse Words in Line</source>
        <translation>Wortfolge der Zeile umkehren</translation>
    </message>
    <message>
        <source>Reverse word order in each line</source>
        <translation>Das letzte Wort jeder Zeile zuerst</translation>
    </message>
    <message>
        <source>Replace Text</source>
        <translation>Text ersetzen</translation>
    </message>
    <message>
        <source>Find and replace text</source>
        <translation>Text suchen und ersetzen</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Text to find...</source>
        <translation>Gesuchter Text...</translation>
    </message>
    <message>
        <source>Replace with</source>
        <translation>Ersetzen durch</translation>
    </message>
    <message>
        <source>Replacement text...</source>
        <translation>Ersatz...</translation>
    </message>
    <message>
        <source>Replace with Regex</source>
        <translation>Mit Regex ersetzen</translation>
    </message>
    <message>
        <source>Find and replace using regular expressions</source>
        <translation>Reguläre Ausdrücke suchen und ersetzen</translation>
    </message>
    <message>
        <source>Regex pattern</source>
        <translation>Regex-Muster</translation>
    </message>
    <message>
        <source>Regular expression pattern...</source>
        <translation>Muster des regulären Ausdrucks...</translation>
    </message>
    <message>
        <source>Reverse Text</source>
        <translation>Text umkehren</translation>
    </message>
    <message>
        <source>Reverse the entire text</source>
        <translation>Den ganzen Text rückwärts</translation>
    </message>
    <message>
        <source>Base64 Encode</source>
        <translation>Base64 kodieren</translation>
    </message>
    <message>
        <source>Encode text to Base64</source>
        <translation>Text in Base64 kodieren</translation>
    </message>
    <message>
        <source>Base64 Decode</source>
        <translation>Base64 dekodieren</translation>
    </message>
    <message>
        <source>Decode Base64 to text</source>
        <translation>Base64 in Text dekodieren</translation>
    </message>
    <message>
        <source>URL Encode</source>
        <translation>URL kodieren</translation>
    </message>
    <message>
        <source>Encode text for URLs</source>
        <translation>Text für URLs kodieren</translation>
    </message>
    <message>
        <source>URL Decode</source>
        <translation>URL dekodieren</translation>
    </message>
    <message>
        <source>Decode URL-encoded text</source>
        <translation>Für URLs kodierten Text dekodieren</translation>
    </message>
    <message>
        <source>HTML Encode</source>
        <translation>HTML kodieren</translation>
    </message>
    <message>
        <source>Encode special HTML characters</source>
        <translation>Sonderzeichen von HTML kodieren</translation>
    </message>
    <message>
        <source>HTML Decode</source>
        <translation>HTML dekodieren</translation>
    </message>
    <message>
        <source>Decode HTML entities</source>
        <translation>HTML-Entitäten dekodieren</translation>
    </message>
    <message>
        <source>JSON Escape</source>
        <translation>JSON maskieren</translation>
    </message>
    <message>
        <source>Escape text for JSON strings</source>
        <translation>Text für JSON-Zeichenketten maskieren</translation>
    </message>
    <message>
        <source>Hex Encode</source>
        <translation>Hex kodieren</translation>
    </message>
    <message>
        <source>Convert text to hexadecimal</source>
        <translation>Text in Hexadezimalzahlen</translation>
    </message>
    <message>
        <source>Hex Decode</source>
        <translation>Hex dekodieren</translation>
    </message>
    <message>
        <source>Decode hexadecimal to text</source>
        <translation>Hexadezimalzahlen in Text</translation>
    </message>
    <message>
        <source>Missing parameter: </source>
        <translation>Fehlender Parameter: </translation>
    </message>
    <message>
        <source>Invalid input: </source>
        <translation>Ungültige Eingabe: </translation>
    </message>
    <message>
        <source>Width must be a positive number</source>
        <translation>Die Breite muss eine positive Zahl sein</translation>
    </message>
    <message>
        <source>Count must be a positive number</source>
        <translation>Die Anzahl muss eine positive Zahl sein</translation>
    </message>
    <message>
        <source>Start must be a positive number</source>
        <translation>Der Anfang muss eine positive Zahl sein</translation>
    </message>
    <message>
        <source>End must be &gt;= start</source>
        <translation>Das Ende muss &gt;= dem Anfang sein</translation>
    </message>
    <message>
        <source>Invalid regular expression: </source>
        <translation>Ungültiger regulärer Ausdruck: </translation>
    </message>
    <message>
        <source>Cannot convert text to data</source>
        <translation>Der Text lässt sich nicht in Daten umwandeln</translation>
    </message>
    <message>
        <source>Invalid Base64 string</source>
        <translation>Ungültige Base64-Zeichenkette</translation>
    </message>
    <message>
        <source>Operation failed: </source>
        <translation>Misslungen: </translation>
    </message>
    <message>
        <source>Cannot encode URL</source>
        <translation>Die URL lässt sich nicht kodieren</translation>
    </message>
    <message>
        <source>Invalid URL-encoded string</source>
        <translation>Ungültig für URLs kodierte Zeichenkette</translation>
    </message>
    <message>
        <source>Invalid hexadecimal string</source>
        <translation>Ungültige Hexadezimalzahlen</translation>
    </message>
    <message>
        <source>Cannot decode hexadecimal to UTF-8</source>
        <translation>Die Hexadezimalzahlen ergeben kein UTF-8</translation>
    </message>
    <message>
        <source>Text Statistics</source>
        <translation>Textstatistik</translation>
    </message>
    <message>
        <source>Get detailed statistics about your text</source>
        <translation>Genaue Statistik des Textes</translation>
    </message>
    <message>
        <source>Character Frequency</source>
        <translation>Zeichenhäufigkeit</translation>
    </message>
    <message>
        <source>Analyze character frequency in text</source>
        <translation>Wie oft jedes Zeichen vorkommt</translation>
    </message>
    <message>
        <source>Reading Time Estimator</source>
        <translation>Lesezeit</translation>
    </message>
    <message>
        <source>Estimate reading and speaking time</source>
        <translation>Lesezeit und Sprechzeit schätzen</translation>
    </message>
    <message>
        <source>Readability Score</source>
        <translation>Lesbarkeit</translation>
    </message>
    <message>
        <source>Calculate Flesch Reading Ease score</source>
        <translation>Lesbarkeit nach Flesch berechnen</translation>
    </message>
    <message>
        <source>Very Difficult</source>
        <translation>Sehr schwer</translation>
    </message>
    <message>
        <source>College Graduate</source>
        <translation>Hochschulabschluss</translation>
    </message>
    <message>
        <source>Difficult</source>
        <translation>Schwer</translation>
    </message>
    <message>
        <source>College</source>
        <translation>Hochschule</translation>
    </message>
    <message>
        <source>Fairly Difficult</source>
        <translation>Eher schwer</translation>
    </message>
    <message>
        <source>10th-12th grade</source>
        <translation>10. bis 12. Klasse</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>8th-9th grade</source>
        <translation>8. bis 9. Klasse</translation>
    </message>
    <message>
        <source>Fairly Easy</source>
        <translation>Eher leicht</translation>
    </message>
    <message>
        <source>7th grade</source>
        <translation>7. Klasse</translation>
    </message>
    <message>
        <source>Easy</source>
        <translation>Leicht</translation>
    </message>
    <message>
        <source>6th grade</source>
        <translation>6. Klasse</translation>
    </message>
    <message>
        <source>Very Easy</source>
        <translation>Sehr leicht</translation>
    </message>
    <message>
        <source>5th grade</source>
        <translation>5. Klasse</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leer</translation>
    </message>
    <message>
        <source>My Recipes</source>
        <translation>Meine Rezepte</translation>
    </message>
    <message>
        <source>Coding</source>
        <translation>Programmieren</translation>
    </message>
    <message>
        <source>Writing</source>
        <translation>Schreiben</translation>
    </message>
    <message>
        <source>Data Processing</source>
        <translation>Daten</translation>
    </message>
    <message>
        <source>Formatting</source>
        <translation>Formatieren</translation>
    </message>
    <message>
        <source>Clean Code Comments</source>
        <translation>Kommentare aus Code entfernen</translation>
    </message>
    <message>
        <source>JSON Keys to Array</source>
        <translation>JSON-Schlüssel als Liste</translation>
    </message>
    <message>
        <source>Create Enum Cases</source>
        <translation>Fälle einer Aufzählung</translation>
    </message>
    <message>
        <source>Format SQL List</source>
        <translation>SQL-Liste</translation>
    </message>
    <message>
        <source>Extract Unique Lines</source>
        <translation>Verschiedene Zeilen</translation>
    </message>
    <message>
        <source>Quote &amp; Comma Lines</source>
        <translation>Zeilen in Anführung mit Komma</translation>
    </message>
    <message>
        <source>CSV to JSON Array</source>
        <translation>CSV als JSON-Liste</translation>
    </message>
    <message>
        <source>Create Bullet List</source>
        <translation>Liste mit Punkten</translation>
    </message>
    <message>
        <source>Create Numbered List</source>
        <translation>Nummerierte Liste</translation>
    </message>
    <message>
        <source>Title Case Headings</source>
        <translation>Überschriften groß</translation>
    </message>
    <message>
        <source>Normalize Text</source>
        <translation>Text vereinheitlichen</translation>
    </message>
    <message>
        <source>Clean Whitespace</source>
        <translation>Leerraum aufräumen</translation>
    </message>
    <message>
        <source>Unix Line Endings</source>
        <translation>Zeilenenden von Unix</translation>
    </message>
    <message>
        <source>The result would be larger than 2 GB</source>
        <translation>Das Ergebnis wäre größer als 2 GB</translation>
    </message>
    <message>
        <source>Text is empty</source>
        <translation>Der Text ist leer</translation>
    </message>
</context>
<context>
    <name>FilePanels</name>
    <message>
        <source>Text files (*.txt *.text *.md *.csv *.tsv *.log *.json *.xml *.html *.yaml *.yml *.ini *.conf)</source>
        <translation>Textdateien (*.txt *.text *.md *.csv *.tsv *.log *.json *.xml *.html *.yaml *.yml *.ini *.conf)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Recipes (*.json)</source>
        <translation>Rezepte (*.json)</translation>
    </message>
    <message>
        <source>Save Text</source>
        <translation>Text speichern</translation>
    </message>
    <message>
        <source>Import Recipes</source>
        <translation>Rezepte einlesen</translation>
    </message>
    <message>
        <source>Export Recipes</source>
        <translation>Rezepte ausgeben</translation>
    </message>
</context>
<context>
    <name>MemoryShortage</name>
    <message>
        <source>There is not enough memory for the result.</source>
        <translation>Der Speicher reicht für das Ergebnis nicht aus.</translation>
    </message>
</context>
<context>
    <name>Menu</name>
    <message>
        <source>Untitled</source>
        <translation>Ohne Namen</translation>
    </message>
    <message>
        <source>Open...</source>
        <translation>Öffnen...</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>Speichern unter...</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Toggle Sidebar</source>
        <translation>Seitenleiste ein- oder ausblenden</translation>
    </message>
    <message>
        <source>Toggle Operations Stack</source>
        <translation>Stapel ein- oder ausblenden</translation>
    </message>
    <message>
        <source>Find...</source>
        <translation>Suchen...</translation>
    </message>
    <message>
        <source>Find Next</source>
        <translation>Weitersuchen</translation>
    </message>
    <message>
        <source>Find Previous</source>
        <translation>Rückwärts weitersuchen</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Actual Size</source>
        <translation>Originalgröße</translation>
    </message>
    <message>
        <source>Save Current as Recipe...</source>
        <translation>Jetzige Schritte als Rezept speichern...</translation>
    </message>
    <message>
        <source>Manage Recipes...</source>
        <translation>Rezepte verwalten...</translation>
    </message>
    <message>
        <source>Import Recipes...</source>
        <translation>Rezepte einlesen...</translation>
    </message>
    <message>
        <source>Export Recipes...</source>
        <translation>Rezepte ausgeben...</translation>
    </message>
    <message>
        <source>Search Transformations</source>
        <translation>Umformungen suchen</translation>
    </message>
    <message>
        <source>Multiple Operation Mode</source>
        <translation>Mehrere Schritte</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
</context>
<context>
    <name>OperationDescription</name>
    <message>
        <source>Unknown transformation</source>
        <translation>Unbekannte Umformung</translation>
    </message>
    <message>
        <source>Lines: %1 → %2</source>
        <translation>Zeilen: %1 → %2</translation>
    </message>
    <message>
        <source>Characters: %1 → %2</source>
        <translation>Zeichen: %1 → %2</translation>
    </message>
    <message>
        <source>Same length</source>
        <translation>Gleich lang</translation>
    </message>
</context>
<context>
    <name>RecipeFile</name>
    <message>
        <source>It is not a file.</source>
        <translation>Sie ist keine Datei.</translation>
    </message>
    <message>
        <source>It is too large to be a list of recipes.</source>
        <translation>Sie ist zu groß für eine Liste von Rezepten.</translation>
    </message>
    <message>
        <source>The recipes could not be written to “%1”: %2</source>
        <translation>Die Rezepte konnten nicht nach „%1“ geschrieben werden: %2</translation>
    </message>
    <message>
        <source>One of them has no valid time.</source>
        <translation>Eines von ihnen hat keine gültige Zeit.</translation>
    </message>
    <message>
        <source>No recipes could be read from “%1”: %2</source>
        <translation>Aus „%1“ konnten keine Rezepte gelesen werden: %2</translation>
    </message>
</context>
<context>
    <name>RecipeJson</name>
    <message>
        <source>%1 is not an object.</source>
        <translation>%1 ist kein Objekt.</translation>
    </message>
    <message>
        <source>a text</source>
        <translation>ein Text</translation>
    </message>
    <message>
        <source>a number of seconds</source>
        <translation>eine Zahl von Sekunden</translation>
    </message>
    <message>
        <source>true or false</source>
        <translation>true oder false</translation>
    </message>
    <message>
        <source>a list</source>
        <translation>eine Liste</translation>
    </message>
    <message>
        <source>&quot;%1&quot; of %2 is not a UUID.</source>
        <translation>„%1“ von %2 ist keine UUID.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; of %2 is not a recipe category.</source>
        <translation>„%1“ von %2 ist keine Kategorie von Rezepten.</translation>
    </message>
    <message>
        <source>an object of texts</source>
        <translation>ein Objekt aus Texten</translation>
    </message>
    <message>
        <source>Parameter &quot;%1&quot; of %2 is not a text.</source>
        <translation>Parameter „%1“ von %2 ist kein Text.</translation>
    </message>
    <message>
        <source>%1 has no &quot;%2&quot;.</source>
        <translation>%1 hat kein „%2“.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; of %2 is not %3.</source>
        <translation>„%1“ von %2 ist nicht %3.</translation>
    </message>
    <message>
        <source>Recipe %1</source>
        <translation>Rezept %1</translation>
    </message>
    <message>
        <source>operation %1 of recipe %2</source>
        <translation>Schritt %1 von Rezept %2</translation>
    </message>
    <message>
        <source>It is not valid JSON: %1 at byte %2.</source>
        <translation>Sie ist kein gültiges JSON: %1 bei Byte %2.</translation>
    </message>
    <message>
        <source>It is not a list of recipes.</source>
        <translation>Sie ist keine Liste von Rezepten.</translation>
    </message>
</context>
<context>
    <name>TextFile</name>
    <message>
        <source>“%1” could not be opened: %2</source>
        <translation>„%1“ konnte nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>“%1” could not be saved: %2</source>
        <translation>„%1“ konnte nicht gespeichert werden: %2</translation>
    </message>
    <message>
        <source>the file is too large</source>
        <translation>die Datei ist zu groß</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>es ist ein Ordner</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>es ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>there is not enough memory</source>
        <translation>der Speicher reicht nicht aus</translation>
    </message>
    <message>
        <source>it is not a text in UTF-8</source>
        <translation>sie ist kein Text in UTF-8</translation>
    </message>
</context>
<context>
    <name>UpdateError</name>
    <message>
        <source>The address of the update is not secure.</source>
        <translation>Die Adresse der Aktualisierung ist nicht sicher.</translation>
    </message>
    <message>
        <source>The update server leads to an address that is not secure.</source>
        <translation>Der Server führt zu einer Adresse, die nicht sicher ist.</translation>
    </message>
    <message>
        <source>The update server could not be reached: %1</source>
        <translation>Der Server für Aktualisierungen ist nicht zu erreichen: %1</translation>
    </message>
    <message>
        <source>The update server answered with error %1.</source>
        <translation>Der Server für Aktualisierungen meldet den Fehler %1.</translation>
    </message>
    <message>
        <source>The update server could not prove its identity.</source>
        <translation>Der Server für Aktualisierungen konnte sich nicht ausweisen.</translation>
    </message>
    <message>
        <source>The update server did not answer in time.</source>
        <translation>Der Server für Aktualisierungen hat nicht rechtzeitig geantwortet.</translation>
    </message>
    <message>
        <source>The update server sent more than it may.</source>
        <translation>Der Server für Aktualisierungen hat mehr geschickt, als er darf.</translation>
    </message>
    <message>
        <source>The list of updates is damaged (%1).</source>
        <translation>Die Liste der Aktualisierungen ist beschädigt (%1).</translation>
    </message>
    <message>
        <source>The update is not signed, so it cannot be trusted.</source>
        <translation>Die Aktualisierung ist nicht unterschrieben; ihr ist nicht zu trauen.</translation>
    </message>
    <message>
        <source>The size of the update is missing or too large.</source>
        <translation>Die Größe der Aktualisierung fehlt oder ist zu groß.</translation>
    </message>
    <message>
        <source>The downloaded update does not have the announced size. It was deleted.</source>
        <translation>Die geladene Aktualisierung hat nicht die angekündigte Größe. Sie wurde gelöscht.</translation>
    </message>
    <message>
        <source>The downloaded update has a wrong signature, so it cannot be trusted. It was deleted.</source>
        <translation>Die geladene Aktualisierung trägt eine falsche Unterschrift; ihr ist nicht zu trauen. Sie wurde gelöscht.</translation>
    </message>
    <message>
        <source>This program cannot verify updates: its key is missing or damaged.</source>
        <translation>Dieses Programm kann Aktualisierungen nicht prüfen: Sein Schlüssel fehlt oder ist beschädigt.</translation>
    </message>
    <message>
        <source>The update could not be saved: %1</source>
        <translation>Die Aktualisierung konnte nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>The desktop has no program that opens the update.</source>
        <translation>Auf dem Desktop gibt es kein Programm, das die Aktualisierung öffnet.</translation>
    </message>
</context>
<context>
    <name>UpdateSheet</name>
    <message>
        <source>Read the release notes on the web</source>
        <translation>Die Neuerungen im Netz lesen</translation>
    </message>
</context>
<context>
    <name>lexivore::AlertSheet</name>
    <message>
        <source>Don&apos;t ask again</source>
        <translation>Nicht mehr fragen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>lexivore::Alerts</name>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>An unknown error occurred</source>
        <translation>Ein unbekannter Fehler ist aufgetreten</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Clear Text</source>
        <translation>Text löschen</translation>
    </message>
    <message>
        <source>Are you sure you want to clear all text?</source>
        <translation>Soll wirklich der ganze Text gelöscht werden?</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Clear Operations</source>
        <translation>Schritte löschen</translation>
    </message>
    <message>
        <source>Are you sure you want to clear all operations?</source>
        <translation>Sollen wirklich alle Schritte gelöscht werden?</translation>
    </message>
    <message>
        <source>Replace Operations</source>
        <translation>Schritte ersetzen</translation>
    </message>
    <message>
        <source>This will replace all current operations with the recipe. Continue?</source>
        <translation>Das Rezept tritt an die Stelle aller jetzigen Schritte. Fortfahren?</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Replace Recipe</source>
        <translation>Rezept ersetzen</translation>
    </message>
    <message>
        <source>A recipe with the name &apos;%1&apos; already exists. Do you want to replace it?</source>
        <translation>Es gibt schon ein Rezept mit dem Namen „%1“. Soll es ersetzt werden?</translation>
    </message>
</context>
<context>
    <name>lexivore::CategorySidebar</name>
    <message>
        <source>Categories</source>
        <translation>Kategorien</translation>
    </message>
</context>
<context>
    <name>lexivore::CharacterFrequencyView</name>
    <message>
        <source>Showing top 20 characters</source>
        <translation>Die 20 häufigsten Zeichen</translation>
    </message>
</context>
<context>
    <name>lexivore::CheckForUpdatesMenuItem</name>
    <message>
        <source>Check for Updates…</source>
        <translation>Nach Aktualisierungen suchen…</translation>
    </message>
</context>
<context>
    <name>lexivore::ClipboardFlow</name>
    <message>
        <source>The text is larger than 2 GB, the most that the editor can hold.</source>
        <translation>Der Text ist größer als 2 GB; mehr fasst der Editor nicht.</translation>
    </message>
</context>
<context>
    <name>lexivore::ContentView</name>
    <message>
        <source>Lexivore</source>
        <translation>Lexivore</translation>
    </message>
    <message>
        <source>Favorites and recipes cannot be saved now. What cannot be saved is lost when Lexivore quits.</source>
        <translation>Favoriten und Rezepte können gerade nicht gesichert werden. Was nicht gesichert werden kann, geht verloren, wenn Lexivore beendet wird.</translation>
    </message>
</context>
<context>
    <name>lexivore::CopyToast</name>
    <message>
        <source>Copied to clipboard</source>
        <translation>In die Zwischenablage kopiert</translation>
    </message>
</context>
<context>
    <name>lexivore::DraggableOperationItem</name>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>%1 entfernen</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>Eingeschaltet</translation>
    </message>
    <message>
        <source>Disabled</source>
        <translation>Ausgeschaltet</translation>
    </message>
    <message>
        <source>Disable</source>
        <translation>Ausschalten</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>Einschalten</translation>
    </message>
    <message>
        <source>Edit Parameters...</source>
        <translation>Parameter bearbeiten...</translation>
    </message>
    <message>
        <source>Click to disable</source>
        <translation>Klick schaltet aus</translation>
    </message>
    <message>
        <source>Click to enable</source>
        <translation>Klick schaltet ein</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Nach unten</translation>
    </message>
</context>
<context>
    <name>lexivore::EditorPane</name>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
</context>
<context>
    <name>lexivore::EditorSettingsSheet</name>
    <message>
        <source>Editor Settings</source>
        <translation>Einstellungen des Editors</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>The quick brown fox jumps over the lazy dog</source>
        <translation>Zwölf Boxkämpfer jagen Viktor quer über den großen Sylter Deich</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Font Size:</source>
        <translation>Schriftgröße:</translation>
    </message>
    <message>
        <source>Font Size</source>
        <translation>Schriftgröße</translation>
    </message>
</context>
<context>
    <name>lexivore::FileDrop</name>
    <message>
        <source>Drop one file at a time.</source>
        <translation>Bitte nur eine Datei auf einmal ablegen.</translation>
    </message>
</context>
<context>
    <name>lexivore::FileFlow</name>
    <message>
        <source>Open one file at a time.</source>
        <translation>Bitte nur eine Datei auf einmal öffnen.</translation>
    </message>
</context>
<context>
    <name>lexivore::FindBar</name>
    <message>
        <source>Find in text</source>
        <translation>Im Text suchen</translation>
    </message>
    <message>
        <source>Find in text...</source>
        <translation>Im Text suchen...</translation>
    </message>
    <message>
        <source>Previous match</source>
        <translation>Vorige Fundstelle</translation>
    </message>
    <message>
        <source>Next match</source>
        <translation>Nächste Fundstelle</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>No matches</source>
        <translation>Nicht gefunden</translation>
    </message>
    <message>
        <source>1 match</source>
        <translation>1 Fundstelle</translation>
    </message>
    <message>
        <source>%1 matches</source>
        <translation>%1 Fundstellen</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
</context>
<context>
    <name>lexivore::FrequencyRow</name>
    <message>
        <source>Line break</source>
        <translation>Zeilenumbruch</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tabulator</translation>
    </message>
</context>
<context>
    <name>lexivore::ManageRecipesSheet</name>
    <message>
        <source>Manage Recipes</source>
        <translation>Rezepte verwalten</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Import...</source>
        <translation>Einlesen...</translation>
    </message>
    <message>
        <source>Add the recipes of a file</source>
        <translation>Die Rezepte einer Datei hinzufügen</translation>
    </message>
    <message>
        <source>Export...</source>
        <translation>Ausgeben...</translation>
    </message>
    <message>
        <source>Write one recipe or all to a file</source>
        <translation>Ein Rezept oder alle in eine Datei schreiben</translation>
    </message>
    <message>
        <source>All Recipes</source>
        <translation>Alle Rezepte</translation>
    </message>
    <message>
        <source>No user recipes</source>
        <translation>Keine eigenen Rezepte</translation>
    </message>
    <message>
        <source>Create recipes by saving your current operations</source>
        <translation>Eigene Rezepte entstehen, wenn die jetzigen Schritte gespeichert werden</translation>
    </message>
    <message>
        <source>My Recipes</source>
        <translation>Meine Rezepte</translation>
    </message>
</context>
<context>
    <name>lexivore::MenuBarBuilder</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Lexivore</source>
        <translation>&amp;Lexivore</translation>
    </message>
    <message>
        <source>About Lexivore</source>
        <translation>Über Lexivore</translation>
    </message>
    <message>
        <source>Quit Lexivore</source>
        <translation>Lexivore beenden</translation>
    </message>
    <message>
        <source>Lexivore</source>
        <translation>Lexivore</translation>
    </message>
    <message>
        <source>Version %1

Transforms plain text.</source>
        <translation>Version %1

Formt reinen Text um.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>&amp;Recipes</source>
        <translation>&amp;Rezepte</translation>
    </message>
    <message>
        <source>&amp;Transformations</source>
        <translation>&amp;Umformungen</translation>
    </message>
    <message>
        <source>T&amp;ools</source>
        <translation>&amp;Werkzeuge</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Contact Support</source>
        <translation>Hilfe anfordern</translation>
    </message>
</context>
<context>
    <name>lexivore::OperationsPanel</name>
    <message>
        <source>Operations</source>
        <translation>Schritte</translation>
    </message>
    <message>
        <source>combine multiple transformations, as a stack</source>
        <translation>mehrere Umformungen zu einem Stapel verbinden</translation>
    </message>
    <message>
        <source>only one transformation at a time</source>
        <translation>immer nur eine Umformung</translation>
    </message>
    <message>
        <source>Multiple</source>
        <translation>Mehrere</translation>
    </message>
    <message>
        <source>Single</source>
        <translation>Einzeln</translation>
    </message>
    <message>
        <source>Operations active (click to pause)</source>
        <translation>Schritte laufen (Klick hält sie an)</translation>
    </message>
    <message>
        <source>Operations paused (click to resume)</source>
        <translation>Schritte angehalten (Klick setzt sie fort)</translation>
    </message>
    <message>
        <source>No operations yet</source>
        <translation>Noch keine Schritte</translation>
    </message>
</context>
<context>
    <name>lexivore::ParameterInputSheet</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
</context>
<context>
    <name>lexivore::ProgressSheet</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
</context>
<context>
    <name>lexivore::ReadabilityView</name>
    <message>
        <source>Words:</source>
        <translation>Wörter:</translation>
    </message>
    <message>
        <source>Sentences:</source>
        <translation>Sätze:</translation>
    </message>
    <message>
        <source>Syllables:</source>
        <translation>Silben:</translation>
    </message>
    <message>
        <source>Higher scores indicate easier readability</source>
        <translation>Je höher der Wert, desto leichter zu lesen</translation>
    </message>
    <message>
        <source>Flesch Reading Ease</source>
        <translation>Lesbarkeit nach Flesch</translation>
    </message>
    <message>
        <source>Grade Level:</source>
        <translation>Schulstufe:</translation>
    </message>
</context>
<context>
    <name>lexivore::ReadingTimeView</name>
    <message>
        <source>%1 words</source>
        <translation>%1 Wörter</translation>
    </message>
    <message>
        <source>words</source>
        <translation>Wörter</translation>
    </message>
    <message>
        <source>Reading Time</source>
        <translation>Lesezeit</translation>
    </message>
    <message>
        <source>(~200 words/min)</source>
        <translation>(~200 Wörter/min)</translation>
    </message>
    <message>
        <source>Speaking Time</source>
        <translation>Sprechzeit</translation>
    </message>
    <message>
        <source>(~150 words/min)</source>
        <translation>(~150 Wörter/min)</translation>
    </message>
    <message>
        <source>Based on average reading speed</source>
        <translation>Bei mittlerer Geschwindigkeit</translation>
    </message>
</context>
<context>
    <name>lexivore::RecipeFlow</name>
    <message>
        <source>recipes</source>
        <translation>Rezepte</translation>
    </message>
    <message>
        <source>recipe</source>
        <translation>Rezept</translation>
    </message>
    <message>
        <source>There are no operations to save as a recipe.</source>
        <translation>Es gibt keine Schritte, die als Rezept gespeichert werden können.</translation>
    </message>
    <message>
        <source>There are no recipes in “%1”.</source>
        <translation>In „%1“ sind keine Rezepte.</translation>
    </message>
</context>
<context>
    <name>lexivore::RecipeRow</name>
    <message>
        <source>%1 operation</source>
        <translation>%1 Schritt</translation>
    </message>
    <message>
        <source>%1 operations</source>
        <translation>%1 Schritte</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Rename %1</source>
        <translation>%1 umbenennen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Delete %1</source>
        <translation>%1 löschen</translation>
    </message>
    <message>
        <source>Recipe name</source>
        <translation>Name des Rezepts</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>lexivore::RecipeSaveSheet</name>
    <message>
        <source>Save Recipe</source>
        <translation>Rezept speichern</translation>
    </message>
    <message>
        <source>Recipe Name</source>
        <translation>Name des Rezepts</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>lexivore::ReleaseNotesView</name>
    <message>
        <source>Release notes</source>
        <translation>Neuerungen</translation>
    </message>
</context>
<context>
    <name>lexivore::StarButton</name>
    <message>
        <source>Remove from favorites</source>
        <translation>Aus den Favoriten nehmen</translation>
    </message>
    <message>
        <source>Add to favorites</source>
        <translation>Zu den Favoriten</translation>
    </message>
    <message>
        <source>Favorite</source>
        <translation>Favorit</translation>
    </message>
</context>
<context>
    <name>lexivore::StatisticsResultView</name>
    <message>
        <source>Averages</source>
        <translation>Mittelwerte</translation>
    </message>
    <message>
        <source>Characters</source>
        <translation>Zeichen</translation>
    </message>
    <message>
        <source>Words</source>
        <translation>Wörter</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>No Spaces</source>
        <translation>Ohne Leerz.</translation>
    </message>
    <message>
        <source>Sentences</source>
        <translation>Sätze</translation>
    </message>
    <message>
        <source>Paragraphs</source>
        <translation>Absätze</translation>
    </message>
    <message>
        <source>Chars per word</source>
        <translation>Zeichen je Wort</translation>
    </message>
    <message>
        <source>Words per line</source>
        <translation>Wörter je Zeile</translation>
    </message>
    <message>
        <source>Words per sentence</source>
        <translation>Wörter je Satz</translation>
    </message>
</context>
<context>
    <name>lexivore::StatusBar</name>
    <message>
        <source>Current cursor position</source>
        <translation>Stelle der Schreibmarke</translation>
    </message>
    <message>
        <source>Total characters</source>
        <translation>Alle Zeichen</translation>
    </message>
    <message>
        <source>Word count</source>
        <translation>Zahl der Wörter</translation>
    </message>
    <message>
        <source>Lines of text</source>
        <translation>Zeilen des Textes</translation>
    </message>
    <message>
        <source>Line endings of the text</source>
        <translation>Zeilenenden des Textes</translation>
    </message>
    <message>
        <source>Editor settings</source>
        <translation>Einstellungen des Editors</translation>
    </message>
    <message>
        <source>Ln %1, Col %2</source>
        <translation>Z. %1, Sp. %2</translation>
    </message>
</context>
<context>
    <name>lexivore::TextDocument</name>
    <message>
        <source>Mixed</source>
        <translation>Gemischt</translation>
    </message>
    <message>
        <source>CRLF</source>
        <translation>CRLF</translation>
    </message>
    <message>
        <source>CR</source>
        <translation>CR</translation>
    </message>
</context>
<context>
    <name>lexivore::TextEditor</name>
    <message>
        <source>The text is larger than 2 GB, the most that the editor can hold.</source>
        <translation>Der Text ist größer als 2 GB; mehr fasst der Editor nicht.</translation>
    </message>
    <message>
        <source>The text would be larger than 2 GB, the most that the editor can hold.</source>
        <translation>Der Text würde größer als 2 GB; mehr fasst der Editor nicht.</translation>
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
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
</context>
<context>
    <name>lexivore::ToolView</name>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
</context>
<context>
    <name>lexivore::TransformationButton</name>
    <message>
        <source>The operations are paused</source>
        <translation>Die Schritte sind angehalten</translation>
    </message>
</context>
<context>
    <name>lexivore::TransformationList</name>
    <message>
        <source>Search transformations</source>
        <translation>Umformungen suchen</translation>
    </message>
    <message>
        <source>Transformations</source>
        <translation>Umformungen</translation>
    </message>
    <message>
        <source>Search transformations...</source>
        <translation>Umformungen suchen...</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Clear search</source>
        <translation>Suche leeren</translation>
    </message>
    <message>
        <source>Search Results</source>
        <translation>Gefunden</translation>
    </message>
    <message>
        <source>Select a category</source>
        <translation>Kategorie wählen</translation>
    </message>
    <message>
        <source>No results</source>
        <translation>Nichts gefunden</translation>
    </message>
</context>
<context>
    <name>lexivore::TrayIcon</name>
    <message>
        <source>Show</source>
        <translation>Anzeigen</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Lexivore</source>
        <translation>Lexivore</translation>
    </message>
</context>
<context>
    <name>lexivore::UpdateFlow</name>
    <message>
        <source>Checking for Updates…</source>
        <translation>Suche nach Aktualisierungen…</translation>
    </message>
    <message>
        <source>Downloading Lexivore %1</source>
        <translation>Lexivore %1 wird geladen</translation>
    </message>
    <message>
        <source>No Update</source>
        <translation>Keine Aktualisierung</translation>
    </message>
    <message>
        <source>You have Lexivore %1. The newest version on offer is older: %2.</source>
        <translation>Hier läuft Lexivore %1. Die neueste angebotene Version ist älter: %2.</translation>
    </message>
    <message>
        <source>Lexivore %1 needs a newer system: version %2 or later.</source>
        <translation>Lexivore %1 braucht ein neueres System: Version %2 oder später.</translation>
    </message>
    <message>
        <source>Lexivore %1 is the newest version.</source>
        <translation>Lexivore %1 ist die neueste Version.</translation>
    </message>
    <message>
        <source>Updates of Lexivore come from your system&apos;s package manager.</source>
        <translation>Aktualisierungen von Lexivore kommen aus der Paketverwaltung des Systems.</translation>
    </message>
    <message>
        <source>Update Ready</source>
        <translation>Aktualisierung bereit</translation>
    </message>
    <message>
        <source>Lexivore %1 was verified and given to your desktop to install.</source>
        <translation>Lexivore %1 wurde geprüft und dem Desktop zum Installieren übergeben.</translation>
    </message>
    <message>
        <source>Update Error</source>
        <translation>Fehler bei der Aktualisierung</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>lexivore::UpdateSheet</name>
    <message>
        <source>Software Update</source>
        <translation>Aktualisierung</translation>
    </message>
    <message>
        <source>Lexivore %1 is available</source>
        <translation>Lexivore %1 ist verfügbar</translation>
    </message>
    <message>
        <source>You have version %1. The download is %2 large.</source>
        <translation>Hier läuft Version %1. Zu laden sind %2.</translation>
    </message>
    <message>
        <source>There are no release notes.</source>
        <translation>Es gibt keine Angaben zu Neuerungen.</translation>
    </message>
    <message>
        <source>Release notes</source>
        <translation>Neuerungen</translation>
    </message>
    <message>
        <source>Skip This Version</source>
        <translation>Version überspringen</translation>
    </message>
    <message>
        <source>Remind Me Later</source>
        <translation>Später erinnern</translation>
    </message>
    <message>
        <source>Install Update</source>
        <translation>Installieren</translation>
    </message>
</context>
<context>
    <name>lexivore::WindowToolBar</name>
    <message>
        <source>Toolbar</source>
        <translation>Werkzeugleiste</translation>
    </message>
    <message>
        <source>Paste text from clipboard</source>
        <translation>Text aus der Zwischenablage einfügen</translation>
    </message>
    <message>
        <source>Copy text to clipboard</source>
        <translation>Text in die Zwischenablage kopieren</translation>
    </message>
    <message>
        <source>Clear all text</source>
        <translation>Ganzen Text löschen</translation>
    </message>
    <message>
        <source>Operations</source>
        <translation>Schritte</translation>
    </message>
    <message>
        <source>Show operations panel</source>
        <translation>Schritte einblenden</translation>
    </message>
    <message>
        <source>Load a saved recipe</source>
        <translation>Gespeichertes Rezept laden</translation>
    </message>
    <message>
        <source>Save current operations as recipe</source>
        <translation>Jetzige Schritte als Rezept speichern</translation>
    </message>
    <message>
        <source>Clear all operations</source>
        <translation>Alle Schritte löschen</translation>
    </message>
    <message>
        <source>Toggle operations panel</source>
        <translation>Schritte ein- oder ausblenden</translation>
    </message>
</context>
</TS>
