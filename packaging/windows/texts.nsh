; What the installer says, beside what NSIS brings, in the languages of the program. Windows tells which one; it is
; English where it is none of these.

!macro Texts LANGUAGE WELCOME PROGRAM_TELLS DESKTOP DESKTOP_TELLS PATH PATH_TELLS RUNNING NEWER STAYS TOO_OLD KIND
  !insertmacro MUI_LANGUAGE "${LANGUAGE}"
  LangString TextWelcome ${LANG_${LANGUAGE}} "${WELCOME}"
  LangString TextProgramTells ${LANG_${LANGUAGE}} "${PROGRAM_TELLS}"
  LangString TextDesktop ${LANG_${LANGUAGE}} "${DESKTOP}"
  LangString TextDesktopTells ${LANG_${LANGUAGE}} "${DESKTOP_TELLS}"
  LangString TextPath ${LANG_${LANGUAGE}} "${PATH}"
  LangString TextPathTells ${LANG_${LANGUAGE}} "${PATH_TELLS}"
  LangString TextRunning ${LANG_${LANGUAGE}} "${RUNNING}"
  LangString TextNewer ${LANG_${LANGUAGE}} "${NEWER}"
  LangString TextStays ${LANG_${LANGUAGE}} "${STAYS}"
  LangString TextTooOld ${LANG_${LANGUAGE}} "${TOO_OLD}"
  LangString TextKind ${LANG_${LANGUAGE}} "${KIND}"
!macroend

!insertmacro Texts English \
  "This installs Lumarine ${VERSION}, with which you design the light over your aquarium and hand it to its controller." \
  "The program, its command line lumarinectl, examples and the guide." \
  "Shortcut on the desktop" \
  "Puts Lumarine on the desktop as well as into the start menu." \
  "lumarinectl in every terminal" \
  "Adds Lumarine's folder to the search path (PATH), so that a terminal knows the command lumarinectl." \
  "Lumarine is running. Close it, and lumarinectl as well, then choose Retry." \
  "Lumarine $0 is installed, which is newer than ${VERSION}. Do you want to put the older version in its place?" \
  "Lumarine will be removed from this folder. Your light programs and settings stay where they are, in your Documents folder." \
  "Lumarine needs Windows 10 or later." \
  "Light program"

!insertmacro Texts German \
  "Hiermit wird Lumarine ${VERSION} installiert. Damit gestalten Sie das Licht über Ihrem Aquarium und übergeben es der Steuerung." \
  "Das Programm, seine Befehlszeile lumarinectl, Beispiele und die Anleitung." \
  "Verknüpfung auf dem Desktop" \
  "Legt Lumarine außer in das Startmenü auch auf den Desktop." \
  "lumarinectl in jedem Terminal" \
  "Fügt den Ordner von Lumarine zum Suchpfad (PATH) hinzu, damit jedes Terminal den Befehl lumarinectl kennt." \
  "Lumarine läuft gerade. Schließen Sie es, auch lumarinectl, und wählen Sie dann Wiederholen." \
  "Lumarine $0 ist installiert und neuer als ${VERSION}. Möchten Sie es durch die ältere Version ersetzen?" \
  "Lumarine wird aus diesem Ordner entfernt. Ihre Lichtprogramme und Einstellungen bleiben, wo sie sind: in Ihrem Ordner Dokumente." \
  "Lumarine benötigt Windows 10 oder neuer." \
  "Lichtprogramm"

!insertmacro Texts Slovak \
  "Nainštaluje sa Lumarine ${VERSION}, v ktorom navrhnete svetlo nad svojím akváriom a odovzdáte ho jeho ovládaču." \
  "Program, jeho príkazový riadok lumarinectl, príklady a príručka." \
  "Odkaz na pracovnej ploche" \
  "Pridá Lumarine okrem ponuky Štart aj na pracovnú plochu." \
  "lumarinectl v každom termináli" \
  "Pridá priečinok programu Lumarine do vyhľadávacej cesty (PATH), aby každý terminál poznal príkaz lumarinectl." \
  "Lumarine je spustený. Ukončite ho, aj lumarinectl, a potom zvoľte Skúsiť znova." \
  "Je nainštalovaný Lumarine $0, ktorý je novší ako ${VERSION}. Chcete ho nahradiť staršou verziou?" \
  "Lumarine bude odstránený z tohto priečinka. Vaše svetelné programy a nastavenia zostanú tam, kde sú: v priečinku Dokumenty." \
  "Lumarine vyžaduje Windows 10 alebo novší." \
  "Svetelný program"

!insertmacro Texts Italian \
  "Verrà installato Lumarine ${VERSION}, con cui disegnare la luce sopra l'acquario e trasmetterla alla centralina." \
  "Il programma, la sua riga di comando lumarinectl, gli esempi e la guida." \
  "Collegamento sul desktop" \
  "Mette Lumarine sul desktop, oltre che nel menu Start." \
  "lumarinectl in ogni terminale" \
  "Aggiunge la cartella di Lumarine al percorso di ricerca (PATH), così ogni terminale conosce il comando lumarinectl." \
  "Lumarine è in esecuzione. Chiuderlo, e anche lumarinectl, poi scegliere Riprova." \
  "È installato Lumarine $0, più recente di ${VERSION}. Sostituirlo con la versione più vecchia?" \
  "Lumarine verrà rimosso da questa cartella. I programmi luce e le impostazioni restano dove sono, nella cartella Documenti." \
  "Lumarine richiede Windows 10 o successivo." \
  "Programma luce"

!insertmacro Texts Czech \
  "Nainstaluje se Lumarine ${VERSION}, ve kterém navrhnete světlo nad svým akváriem a předáte je jeho ovladači." \
  "Program, jeho příkazový řádek lumarinectl, příklady a příručka." \
  "Zástupce na ploše" \
  "Přidá Lumarine kromě nabídky Start také na plochu." \
  "lumarinectl v každém terminálu" \
  "Přidá složku programu Lumarine do vyhledávací cesty (PATH), aby každý terminál znal příkaz lumarinectl." \
  "Lumarine je spuštěn. Ukončete jej, i lumarinectl, a pak zvolte Opakovat." \
  "Je nainstalován Lumarine $0, který je novější než ${VERSION}. Chcete jej nahradit starší verzí?" \
  "Lumarine bude odebrán z této složky. Vaše světelné programy a nastavení zůstanou tam, kde jsou: ve složce Dokumenty." \
  "Lumarine vyžaduje Windows 10 nebo novější." \
  "Světelný program"

!insertmacro Texts French \
  "Lumarine ${VERSION} va être installé. Il vous permet de composer la lumière de votre aquarium et de la transmettre à son contrôleur." \
  "Le programme, sa ligne de commande lumarinectl, des exemples et le guide." \
  "Raccourci sur le bureau" \
  "Place Lumarine sur le bureau, en plus du menu Démarrer." \
  "lumarinectl dans chaque terminal" \
  "Ajoute le dossier de Lumarine au chemin de recherche (PATH), afin que chaque terminal connaisse la commande lumarinectl." \
  "Lumarine est en cours d'exécution. Fermez-le, ainsi que lumarinectl, puis choisissez Réessayer." \
  "Lumarine $0 est installé ; il est plus récent que ${VERSION}. Voulez-vous le remplacer par la version plus ancienne ?" \
  "Lumarine sera supprimé de ce dossier. Vos programmes d'éclairage et vos réglages restent où ils sont, dans votre dossier Documents." \
  "Lumarine nécessite Windows 10 ou une version ultérieure." \
  "Programme d'éclairage"

!insertmacro Texts Polish \
  "Zostanie zainstalowany Lumarine ${VERSION}, w którym zaprojektujesz światło nad swoim akwarium i przekażesz je sterownikowi." \
  "Program, jego wiersz poleceń lumarinectl, przykłady i podręcznik." \
  "Skrót na pulpicie" \
  "Umieszcza Lumarine także na pulpicie, oprócz menu Start." \
  "lumarinectl w każdym terminalu" \
  "Dodaje folder programu Lumarine do ścieżki wyszukiwania (PATH), aby każdy terminal znał polecenie lumarinectl." \
  "Lumarine jest uruchomiony. Zamknij go, a także lumarinectl, i wybierz Ponów próbę." \
  "Zainstalowany jest Lumarine $0, nowszy niż ${VERSION}. Czy zastąpić go starszą wersją?" \
  "Lumarine zostanie usunięty z tego folderu. Programy oświetlenia i ustawienia pozostaną na swoim miejscu, w folderze Dokumenty." \
  "Lumarine wymaga systemu Windows 10 lub nowszego." \
  "Program oświetlenia"

!insertmacro Texts Spanish \
  "Se instalará Lumarine ${VERSION}, con el que se diseña la luz del acuario y se entrega a su controlador." \
  "El programa, su línea de comandos lumarinectl, ejemplos y la guía." \
  "Acceso directo en el escritorio" \
  "Pone Lumarine en el escritorio, además del menú Inicio." \
  "lumarinectl en todos los terminales" \
  "Añade la carpeta de Lumarine a la ruta de búsqueda (PATH), para que todos los terminales conozcan el comando lumarinectl." \
  "Lumarine se está ejecutando. Ciérrelo, y también lumarinectl, y elija Reintentar." \
  "Está instalado Lumarine $0, más reciente que ${VERSION}. ¿Desea sustituirlo por la versión anterior?" \
  "Lumarine se eliminará de esta carpeta. Sus programas de luz y su configuración permanecen donde están, en su carpeta Documentos." \
  "Lumarine necesita Windows 10 o posterior." \
  "Programa de luz"
