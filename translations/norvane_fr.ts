<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR" sourcelanguage="en">
<context>
    <name>AddTrialForm</name>
    <message>
        <source>Service name</source>
        <translation>Nom du service</translation>
    </message>
    <message>
        <source>e.g. Netflix, Canva Pro</source>
        <translation>p. ex. Netflix, Canva Pro</translation>
    </message>
    <message>
        <source>Trial ends</source>
        <translation>Fin de l’essai</translation>
    </message>
    <message>
        <source>Monthly cost after trial</source>
        <translation>Coût mensuel après l’essai</translation>
    </message>
</context>
<context>
    <name>AlertContent</name>
    <message>
        <source>Remove &quot;%@&quot; from Norvane?</source>
        <translation>Retirer &quot;%@&quot; de Norvane ?</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>ContentView</name>
    <message>
        <source>%@ added</source>
        <translation>%@ ajouté</translation>
    </message>
    <message>
        <source>%@ deleted</source>
        <translation>%@ supprimé</translation>
    </message>
</context>
<context>
    <name>CostRow</name>
    <message>
        <source>$</source>
        <translation>$</translation>
    </message>
    <message>
        <source>0.00</source>
        <translation>0.00</translation>
    </message>
    <message>
        <source>Monthly cost after trial</source>
        <translation>Coût mensuel après l’essai</translation>
    </message>
</context>
<context>
    <name>DateTimeField</name>
    <message>
        <source>Day</source>
        <translation>Jour</translation>
    </message>
    <message>
        <source>Choose a day</source>
        <translation>Choisir un jour</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Heure</translation>
    </message>
</context>
<context>
    <name>DayCell</name>
    <message>
        <source>Today</source>
        <translation>Aujourd’hui</translation>
    </message>
</context>
<context>
    <name>DeleteAlert</name>
    <message>
        <source>Delete Trial?</source>
        <translation>Supprimer l’essai ?</translation>
    </message>
</context>
<context>
    <name>EmptyState</name>
    <message>
        <source>No trials tracked</source>
        <translation>Aucun essai suivi</translation>
    </message>
    <message>
        <source>Add a free trial to get started</source>
        <translation>Ajoutez un essai gratuit pour commencer</translation>
    </message>
</context>
<context>
    <name>FormActions</name>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Track Trial</source>
        <translation>Suivre l’essai</translation>
    </message>
</context>
<context>
    <name>MonthPage</name>
    <message>
        <source>Previous month</source>
        <translation>Mois précédent</translation>
    </message>
    <message>
        <source>Next month</source>
        <translation>Mois suivant</translation>
    </message>
</context>
<context>
    <name>NorvaneApp</name>
    <message>
        <source>Norvane is already running in another session of this user.</source>
        <translation>Norvane est déjà en cours d’exécution dans une autre session de cet utilisateur.</translation>
    </message>
</context>
<context>
    <name>PanelFooter</name>
    <message>
        <source>Add Trial</source>
        <translation>Ajouter un essai</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
</context>
<context>
    <name>PanelHeader</name>
    <message>
        <source>Norvane</source>
        <translation>Norvane</translation>
    </message>
    <message>
        <source>%lld active</source>
        <translation>actifs : %lld</translation>
    </message>
</context>
<context>
    <name>TrayMenu</name>
    <message>
        <source>Open Norvane</source>
        <translation>Ouvrir Norvane</translation>
    </message>
</context>
<context>
    <name>TrialList</name>
    <message>
        <source>Trials</source>
        <translation>Essais</translation>
    </message>
    <message>
        <source>%lld in total</source>
        <translation>%lld au total</translation>
    </message>
</context>
<context>
    <name>TrialRow</name>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>%@ of %lld</source>
        <translation>%@ sur %lld</translation>
    </message>
    <message>
        <source>%lldd left</source>
        <translation>reste %lld j</translation>
    </message>
</context>
</TS>
