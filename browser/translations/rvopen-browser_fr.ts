<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>Start</name>
    <message>
        <source>Choose and edit presets and snapshots by their pictures</source>
        <translation>Choisir et modifier préréglages et vues d’après leurs images</translation>
    </message>
    <message>
        <source>Remember in this file instead of the user&apos;s</source>
        <translation>Retenir dans ce fichier plutôt que dans celui de l’utilisateur</translation>
    </message>
    <message>
        <source>Archives, documents and folders; without any what was open before</source>
        <translation>Archives, documents et dossiers ; sans rien, ce qui était ouvert avant</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::CompareWindow</name>
    <message>
        <source>new</source>
        <translation>nouveau</translation>
    </message>
    <message>
        <source>gone</source>
        <translation>retiré</translation>
    </message>
    <message>
        <source>moved</source>
        <translation>déplacé</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>modifié</translation>
    </message>
    <message>
        <source>%1 and %2</source>
        <translation>%1 et %2</translation>
    </message>
    <message>
        <source>Picture of %1</source>
        <translation>Image de %1</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Où</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Quoi</translation>
    </message>
    <message>
        <source>Differences</source>
        <translation>Différences</translation>
    </message>
    <message>
        <source>Nothing differs</source>
        <translation>Aucune différence</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::Details</name>
    <message>
        <source>Preview</source>
        <translation>Aperçu</translation>
    </message>
    <message>
        <source>Values</source>
        <translation>Valeurs</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Fichiers d’image</translation>
    </message>
    <message>
        <source>Nothing is chosen</source>
        <translation>Rien n’est choisi</translation>
    </message>
    <message>
        <source>%1 is missing</source>
        <translation>%1 est absent</translation>
    </message>
    <message>
        <source>Images (%1)</source>
        <translation>Fichiers d’image (%1)</translation>
    </message>
    <message>
        <source>References</source>
        <translation>Références</translation>
    </message>
    <message>
        <source>%1 %2 is missing</source>
        <translation>%1 %2 est introuvable</translation>
    </message>
    <message>
        <source>References (%1)</source>
        <translation>Références (%1)</translation>
    </message>
    <message>
        <source>Values, images, references and labels</source>
        <translation>Valeurs, images, références et mentions</translation>
    </message>
    <message>
        <source>Labels</source>
        <translation>Mentions</translation>
    </message>
    <message>
        <source>%1 is the reference name of another preset</source>
        <translation>%1 est le nom de référence d’un autre préréglage</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::EditedFile</name>
    <message>
        <source>Apply</source>
        <translation>Appliquer</translation>
    </message>
    <message>
        <source>Recover</source>
        <translation>Récupérer</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::Exports</name>
    <message>
        <source>There is nothing to show on a sheet</source>
        <translation>Rien à montrer sur une planche</translation>
    </message>
    <message>
        <source>That is too much for one picture: take PDF, or smaller pictures, of %1 pixels</source>
        <translation>C’est trop pour une seule image : prenez PDF, ou des images plus petites, de %1 pixels</translation>
    </message>
    <message numerus="yes">
        <source>%1 has %n picture(s)</source>
        <translation>
            <numerusform>%1 contient %n image</numerusform>
            <numerusform>%1 contient %n images</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n picture(s) were written</source>
        <translation>
            <numerusform>%n image enregistrée</numerusform>
            <numerusform>%n images enregistrées</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>rvopen::browser::Findings</name>
    <message>
        <source>Finding</source>
        <translation>Constat</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Où</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>Constats</translation>
    </message>
    <message>
        <source>Mend</source>
        <translation>Réparer</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::Grid</name>
    <message>
        <source>Presets</source>
        <translation>Préréglages</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::Labels</name>
    <message>
        <source>Category</source>
        <translation>Catégorie</translation>
    </message>
    <message>
        <source>Tag</source>
        <translation>Étiquette</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Description</translation>
    </message>
    <message>
        <source>Reference name</source>
        <translation>Nom de référence</translation>
    </message>
    <message>
        <source>Describe</source>
        <translation>Décrire</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::MainWindow</name>
    <message>
        <source>%1 was edited until %2 and not saved.</source>
        <translation>%1 a été modifié jusqu’au %2 et n’a pas été enregistré.</translation>
    </message>
    <message>
        <source>Recover</source>
        <translation>Récupérer</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Abandonner</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) were edited.</source>
        <translation>
            <numerusform>%n fichier a été modifié.</numerusform>
            <numerusform>%n fichiers ont été modifiés.</numerusform>
        </translation>
    </message>
    <message>
        <source>Save and close</source>
        <translation>Enregistrer et fermer</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Fermer sans enregistrer</translation>
    </message>
    <message>
        <source>Stay</source>
        <translation>Rester</translation>
    </message>
    <message>
        <source>File that is edited</source>
        <translation>Fichier en cours de modification</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Filters</source>
        <translation>Filtres</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>Preset</source>
        <translation>Préréglage</translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>Constats</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Rechercher</translation>
    </message>
    <message>
        <source>Search names, categories, descriptions</source>
        <translation>Chercher dans les noms, catégories et descriptions</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Couleur</translation>
    </message>
    <message>
        <source>Look for a colour, the nearest first; a colour or a picture can be dropped on the presets, too</source>
        <translation>Chercher une couleur, la plus proche d’abord ; une couleur ou une image peut aussi être déposée sur les préréglages</translation>
    </message>
    <message>
        <source>Size of the pictures</source>
        <translation>Taille des images</translation>
    </message>
    <message>
        <source>Edits are not kept for after a crash: %1</source>
        <translation>Les modifications ne sont pas gardées en cas de plantage : %1</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message numerus="yes">
        <source>%n preset(s)</source>
        <translation>
            <numerusform>%n préréglage</numerusform>
            <numerusform>%n préréglages</numerusform>
        </translation>
    </message>
    <message>
        <source>%1[*] – rvopen</source>
        <translation>%1[*] – rvopen</translation>
    </message>
    <message>
        <source>Presets</source>
        <translation>Préréglages</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>New &amp;Archive…</source>
        <translation>Nouvelle &amp;archive…</translation>
    </message>
    <message>
        <source>New &amp;Snapshot Document…</source>
        <translation>Nouveau document de &amp;vues…</translation>
    </message>
    <message>
        <source>&amp;Open Files…</source>
        <translation>&amp;Ouvrir des fichiers…</translation>
    </message>
    <message>
        <source>Open &amp;Folder…</source>
        <translation>Ouvrir un &amp;dossier…</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Enregistrer</translation>
    </message>
    <message>
        <source>Save A&amp;ll</source>
        <translation>&amp;Tout enregistrer</translation>
    </message>
    <message>
        <source>&amp;Export Pictures…</source>
        <translation>E&amp;xporter les images…</translation>
    </message>
    <message>
        <source>&amp;Close File</source>
        <translation>&amp;Fermer le fichier</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Édition</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Rétablir</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Co&amp;uper</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copier</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>C&amp;oller</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Nouveau</translation>
    </message>
    <message>
        <source>&amp;Duplicate</source>
        <translation>&amp;Dupliquer</translation>
    </message>
    <message>
        <source>Rena&amp;me</source>
        <translation>Reno&amp;mmer</translation>
    </message>
    <message>
        <source>De&amp;lete</source>
        <translation>&amp;Supprimer</translation>
    </message>
    <message>
        <source>Move U&amp;p</source>
        <translation>Vers le &amp;haut</translation>
    </message>
    <message>
        <source>Move Do&amp;wn</source>
        <translation>Vers le &amp;bas</translation>
    </message>
    <message>
        <source>&amp;Sort by Name</source>
        <translation>&amp;Trier par nom</translation>
    </message>
    <message>
        <source>&amp;Favourite</source>
        <translation>&amp;Favori</translation>
    </message>
    <message>
        <source>F&amp;ind</source>
        <translation>&amp;Rechercher</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Outils</translation>
    </message>
    <message>
        <source>&amp;Check File</source>
        <translation>&amp;Vérifier le fichier</translation>
    </message>
    <message>
        <source>Check &amp;All Files</source>
        <translation>Vérifier &amp;tous les fichiers</translation>
    </message>
    <message>
        <source>&amp;Mend</source>
        <translation>&amp;Réparer</translation>
    </message>
    <message>
        <source>C&amp;ompare</source>
        <translation>&amp;Comparer</translation>
    </message>
    <message>
        <source>Apply &amp;to</source>
        <translation>&amp;Appliquer à</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>Affi&amp;chage</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Aide</translation>
    </message>
    <message>
        <source>&amp;About rvopen</source>
        <translation>À &amp;propos de rvopen</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Dossier</translation>
    </message>
    <message>
        <source>Choose a preset, a folder or a section first</source>
        <translation>Choisissez d’abord un préréglage, un dossier ou une section</translation>
    </message>
    <message numerus="yes">
        <source>%n element(s) were deleted; Undo brings them back</source>
        <translation>
            <numerusform>%n élément a été supprimé ; Annuler le rétablit</numerusform>
            <numerusform>%n éléments ont été supprimés ; Annuler les rétablit</numerusform>
        </translation>
    </message>
    <message>
        <source>This cannot be duplicated</source>
        <translation>Ceci ne peut pas être dupliqué</translation>
    </message>
    <message>
        <source>That cannot stand here: choose a section or a folder for it</source>
        <translation>Cela n’a pas sa place ici : choisissez une section ou un dossier qui convient</translation>
    </message>
    <message>
        <source>%1 is a favourite</source>
        <translation>%1 est un favori</translation>
    </message>
    <message>
        <source>%1 is no favourite any more</source>
        <translation>%1 n’est plus un favori</translation>
    </message>
    <message numerus="yes">
        <source>%n finding(s) were mended; Undo brings them back</source>
        <translation>
            <numerusform>%n constat a été réparé ; Annuler le rétablit</numerusform>
            <numerusform>%n constats ont été réparés ; Annuler les rétablit</numerusform>
        </translation>
    </message>
    <message>
        <source>Choose one preset, and open the document that it is to be used in</source>
        <translation>Choisissez un préréglage et ouvrez le document où il doit servir</translation>
    </message>
    <message>
        <source>%1 was applied to %2</source>
        <translation>%1 a été appliqué à %2</translation>
    </message>
    <message>
        <source>%1 cannot be applied there</source>
        <translation>%1 ne peut pas être appliqué là</translation>
    </message>
    <message>
        <source>rvopen %1: presets and snapshots to choose from, and to edit</source>
        <translation>rvopen %1 : préréglages et vues à choisir et à modifier</translation>
    </message>
    <message>
        <source>Open Files</source>
        <translation>Ouvrir des fichiers</translation>
    </message>
    <message>
        <source>Archives and documents (*.rvx *.xml)</source>
        <translation>Archives et documents (*.rvx *.xml)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Tous les fichiers (*)</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>Ouvrir un dossier</translation>
    </message>
    <message>
        <source>New Archive</source>
        <translation>Nouvelle archive</translation>
    </message>
    <message>
        <source>Archives (*.rvx)</source>
        <translation>Archives (*.rvx)</translation>
    </message>
    <message>
        <source>New Snapshot Document</source>
        <translation>Nouveau document de vues</translation>
    </message>
    <message>
        <source>Snapshot documents (*.xml)</source>
        <translation>Documents de vues (*.xml)</translation>
    </message>
    <message>
        <source>%1 was edited.</source>
        <translation>%1 a été modifié.</translation>
    </message>
    <message>
        <source>%1 was changed by another program.</source>
        <translation>%1 a été modifié par un autre programme.</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Recharger</translation>
    </message>
    <message>
        <source>Keep mine</source>
        <translation>Garder la mienne</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>Comparer</translation>
    </message>
    <message>
        <source>%1 on disk</source>
        <translation>%1 sur le disque</translation>
    </message>
    <message>
        <source>%1 here</source>
        <translation>%1 ici</translation>
    </message>
    <message numerus="yes">
        <source>Folder for %n picture(s)</source>
        <translation>
            <numerusform>Dossier pour %n image</numerusform>
            <numerusform>Dossier pour %n images</numerusform>
        </translation>
    </message>
    <message>
        <source>Snapshots</source>
        <translation>Vues</translation>
    </message>
    <message>
        <source>&amp;Remove from the List</source>
        <translation>&amp;Retirer de la liste</translation>
    </message>
    <message>
        <source>This cannot be renamed</source>
        <translation>Ceci ne peut pas être renommé</translation>
    </message>
    <message>
        <source>&amp;Import…</source>
        <translation>&amp;Importer…</translation>
    </message>
    <message>
        <source>Mer&amp;ge…</source>
        <translation>&amp;Fusionner…</translation>
    </message>
    <message>
        <source>Collect with I&amp;mages…</source>
        <translation>&amp;Rassembler avec les images…</translation>
    </message>
    <message>
        <source>Export S&amp;heet…</source>
        <translation>Exporter une &amp;planche…</translation>
    </message>
    <message>
        <source>Export Page for &amp;Browsers…</source>
        <translation>Exporter une page &amp;web…</translation>
    </message>
    <message>
        <source>Find &amp;Uses</source>
        <translation>Trouver les &amp;utilisations</translation>
    </message>
    <message>
        <source>Find Missing &amp;Images…</source>
        <translation>Retrouver les &amp;images manquantes…</translation>
    </message>
    <message>
        <source>&amp;Embed Pictures</source>
        <translation>Int&amp;égrer les images</translation>
    </message>
    <message>
        <source>&amp;Set the Value for All Chosen</source>
        <translation>Définir la valeur pour tous les &amp;choisis</translation>
    </message>
    <message numerus="yes">
        <source>Sheet of %n picture(s)</source>
        <translation>
            <numerusform>Planche de %n image</numerusform>
            <numerusform>Planche de %n images</numerusform>
        </translation>
    </message>
    <message>
        <source>To print (*.pdf)</source>
        <translation>À imprimer (*.pdf)</translation>
    </message>
    <message>
        <source>One picture (*.png)</source>
        <translation>Une image (*.png)</translation>
    </message>
    <message numerus="yes">
        <source>Empty folder for a page of %n picture(s)</source>
        <translation>
            <numerusform>Dossier vide pour une page de %n image</numerusform>
            <numerusform>Dossier vide pour une page de %n images</numerusform>
        </translation>
    </message>
    <message>
        <source>Choose a preset or a file first</source>
        <translation>Choisissez d’abord un préréglage ou un fichier</translation>
    </message>
    <message>
        <source>Import into %1</source>
        <translation>Importer dans %1</translation>
    </message>
    <message numerus="yes">
        <source>%n element(s) are there with another content.</source>
        <translation>
            <numerusform>%n élément existe déjà avec un autre contenu.</numerusform>
            <numerusform>%n éléments existent déjà avec un autre contenu.</numerusform>
        </translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Remplacer</translation>
    </message>
    <message>
        <source>Take under other names</source>
        <translation>Reprendre sous d’autres noms</translation>
    </message>
    <message>
        <source>Leave</source>
        <translation>Laisser</translation>
    </message>
    <message>
        <source>Merge into %1</source>
        <translation>Fusionner dans %1</translation>
    </message>
    <message>
        <source>What both come from</source>
        <translation>Ce dont les deux proviennent</translation>
    </message>
    <message>
        <source>Is there a version that both come from?</source>
        <translation>Y a-t-il une version dont les deux proviennent ?</translation>
    </message>
    <message>
        <source>Choose it…</source>
        <translation>La choisir…</translation>
    </message>
    <message>
        <source>There is none</source>
        <translation>Il n’y en a pas</translation>
    </message>
    <message>
        <source>Do not merge</source>
        <translation>Ne pas fusionner</translation>
    </message>
    <message>
        <source>Folder for %1 and its images</source>
        <translation>Dossier pour %1 et ses images</translation>
    </message>
    <message>
        <source>Some images lie elsewhere on this machine.</source>
        <translation>Certaines images se trouvent ailleurs sur cette machine.</translation>
    </message>
    <message>
        <source>Take them along</source>
        <translation>Les emporter</translation>
    </message>
    <message>
        <source>Leave them out</source>
        <translation>Les omettre</translation>
    </message>
    <message>
        <source>Do not collect</source>
        <translation>Ne pas rassembler</translation>
    </message>
    <message>
        <source>Folder that the missing images are in, or below</source>
        <translation>Dossier qui contient les images manquantes, directement ou plus bas</translation>
    </message>
    <message>
        <source>Choose presets first</source>
        <translation>Choisissez d’abord des préréglages</translation>
    </message>
    <message>
        <source>Choose several presets, and the value that all of them are to have</source>
        <translation>Choisissez plusieurs préréglages, et la valeur que tous doivent avoir</translation>
    </message>
    <message>
        <source>Choose one preset that has a reference name</source>
        <translation>Choisissez un préréglage qui a un nom de référence</translation>
    </message>
    <message>
        <source>As the &amp;Desktop</source>
        <translation>Comme le &amp;bureau</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>C&amp;lair</translation>
    </message>
    <message>
        <source>Dar&amp;k</source>
        <translation>&amp;Sombre</translation>
    </message>
    <message>
        <source>Something else is being done: try again when it has ended</source>
        <translation>Autre chose est en cours : réessayez quand ce sera terminé</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::MessageLine</name>
    <message>
        <source>Messages</source>
        <translation>Messages</translation>
    </message>
    <message>
        <source>Close this message</source>
        <translation>Fermer ce message</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::Sidebar</name>
    <message>
        <source>Filters</source>
        <translation>Filtres</translation>
    </message>
    <message>
        <source>Files, kinds, categories and tags to choose presets by</source>
        <translation>Fichiers, genres, catégories et mots-clés pour choisir des préréglages</translation>
    </message>
    <message>
        <source>All presets</source>
        <translation>Tous les préréglages</translation>
    </message>
    <message>
        <source>Favourites</source>
        <translation>Favoris</translation>
    </message>
    <message>
        <source>Recent</source>
        <translation>Récents</translation>
    </message>
    <message>
        <source>Kinds</source>
        <translation>Genres</translation>
    </message>
    <message>
        <source>Categories</source>
        <translation>Catégories</translation>
    </message>
    <message>
        <source>Tags</source>
        <translation>Mots-clés</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Fichiers</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::SnapShotStrip</name>
    <message>
        <source>Snapshots</source>
        <translation>Vues</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::Workspace</name>
    <message>
        <source>%1 is not there</source>
        <translation>%1 n’existe pas</translation>
    </message>
    <message>
        <source>%1: not all of its edits could be recovered</source>
        <translation>%1 : toutes les modifications n’ont pas pu être récupérées</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::edits</name>
    <message>
        <source>Rename</source>
        <translation>Renommer</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Dupliquer</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Déplacer</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Coller</translation>
    </message>
    <message>
        <source>New folder</source>
        <translation>Nouveau dossier</translation>
    </message>
    <message>
        <source>New %1</source>
        <translation>Nouveau : %1</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Nouveau</translation>
    </message>
    <message>
        <source>Sort</source>
        <translation>Trier</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::works</name>
    <message>
        <source>%1 was edited meanwhile: nothing was done</source>
        <translation>%1 a été modifié entre-temps : rien n’a été fait</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>rien</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importer</translation>
    </message>
    <message numerus="yes">
        <source>%n element(s) were taken over</source>
        <translation>
            <numerusform>%n élément repris</numerusform>
            <numerusform>%n éléments repris</numerusform>
        </translation>
    </message>
    <message>
        <source>Merge</source>
        <translation>Fusionner</translation>
    </message>
    <message>
        <source>Both changed: before %1, here %2, there %3</source>
        <translation>Modifié des deux côtés : avant %1, ici %2, là-bas %3</translation>
    </message>
    <message numerus="yes">
        <source>%n change(s) were taken, </source>
        <translation>
            <numerusform>%n modification reprise, </numerusform>
            <numerusform>%n modifications reprises, </numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n conflict(s) are to be looked at</source>
        <translation>
            <numerusform>%n conflit à examiner</numerusform>
            <numerusform>%n conflits à examiner</numerusform>
        </translation>
    </message>
    <message>
        <source>Find Images</source>
        <translation>Retrouver les images</translation>
    </message>
    <message numerus="yes">
        <source>%n image(s) were found, </source>
        <translation>
            <numerusform>%n image retrouvée, </numerusform>
            <numerusform>%n images retrouvées, </numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n are missing still</source>
        <translation>
            <numerusform>%n manque encore</numerusform>
            <numerusform>%n manquent encore</numerusform>
        </translation>
    </message>
    <message>
        <source>Embed Pictures</source>
        <translation>Intégrer les images</translation>
    </message>
    <message numerus="yes">
        <source>%n picture(s) were embedded</source>
        <translation>
            <numerusform>%n image intégrée</numerusform>
            <numerusform>%n images intégrées</numerusform>
        </translation>
    </message>
    <message>
        <source>Set for All</source>
        <translation>Définir pour tous</translation>
    </message>
    <message numerus="yes">
        <source>The value was set in %n preset(s)</source>
        <translation>
            <numerusform>La valeur a été définie dans %n préréglage</numerusform>
            <numerusform>La valeur a été définie dans %n préréglages</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, and %n cannot have it</source>
        <translation>
            <numerusform>, et %n ne peut pas l’avoir</numerusform>
            <numerusform>, et %n ne peuvent pas l’avoir</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 has the file and %n image(s)</source>
        <translation>
            <numerusform>%1 contient le fichier et %n image</numerusform>
            <numerusform>%1 contient le fichier et %n images</numerusform>
        </translation>
    </message>
    <message>
        <source>Uses %1 %2</source>
        <translation>Utilise %1 %2</translation>
    </message>
    <message numerus="yes">
        <source>%1 is used in %n place(s)</source>
        <translation>
            <numerusform>%1 est utilisé à %n endroit</numerusform>
            <numerusform>%1 est utilisé à %n endroits</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>rvopen::widgets::ColourEditor</name>
    <message>
        <source>Choose a colour</source>
        <translation>Choisir une couleur</translation>
    </message>
    <message>
        <source>swatch</source>
        <translation>échantillon</translation>
    </message>
</context>
<context>
    <name>rvopen::widgets::FileEditor</name>
    <message>
        <source>Choose a folder</source>
        <translation>Choisir un dossier</translation>
    </message>
    <message>
        <source>Choose a file</source>
        <translation>Choisir un fichier</translation>
    </message>
    <message>
        <source>dialog</source>
        <translation>dialogue</translation>
    </message>
    <message>
        <source>preview</source>
        <translation>aperçu</translation>
    </message>
    <message>
        <source>No image</source>
        <translation>Aucune image</translation>
    </message>
</context>
<context>
    <name>rvopen::widgets::NodeModel</name>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Genre</translation>
    </message>
</context>
<context>
    <name>rvopen::widgets::NumberEditor</name>
    <message>
        <source>slider</source>
        <translation>curseur</translation>
    </message>
</context>
<context>
    <name>rvopen::widgets::ParamEditor</name>
    <message>
        <source>red</source>
        <translation>rouge</translation>
    </message>
    <message>
        <source>green</source>
        <translation>vert</translation>
    </message>
    <message>
        <source>blue</source>
        <translation>bleu</translation>
    </message>
</context>
<context>
    <name>rvopen::widgets::ParamModel</name>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valeur</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Unité</translation>
    </message>
    <message>
        <source>Meaning</source>
        <translation>Signification</translation>
    </message>
</context>
<context>
    <name>rvopen::widgets::PresetModel</name>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Genre</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Catégorie</translation>
    </message>
    <message>
        <source>Sub-category</source>
        <translation>Sous-catégorie</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Dossier</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
</context>
<context>
    <name>rvopen::widgets::UndoRecorder</name>
    <message>
        <source>Edit</source>
        <translation>Modifier</translation>
    </message>
</context>
</TS>
