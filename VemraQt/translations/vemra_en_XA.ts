<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_XA" sourcelanguage="en">
<context>
    <name>VemraScreen</name>
    <message>
        <source>People worth considering</source>
        <translation>[Péöplé wöřth çöñšîdéřîñg ~·~·~·~·~·]</translation>
    </message>
    <message>
        <source>Show source</source>
        <translation>[Šhöw šöûřçé ~·~·]</translation>
    </message>
    <message>
        <source>Supported path</source>
        <translation>[Šûppöřtéd pàth ~·~·~·]</translation>
    </message>
    <message>
        <source>See in Starfold</source>
        <translation>[Šéé îñ Štàřföld ~·~·~·]</translation>
    </message>
    <message>
        <source>Record outcome</source>
        <translation>[Řéçöřd öûtçömé ~·~·~·]</translation>
    </message>
    <message>
        <source>Correct</source>
        <translation>[Çöřřéçt ~·~]</translation>
    </message>
    <message>
        <source>· corrected</source>
        <translation>[· çöřřéçtéd ~·~·]</translation>
    </message>
    <message>
        <source>Outcome</source>
        <translation>[Öûtçömé ~·~]</translation>
    </message>
    <message>
        <source>Note (optional)</source>
        <translation>[Ñöté (öptîöñàl) ~·~·~·]</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>[Šàvé ~·]</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>[Çàñçél ~·]</translation>
    </message>
    <message>
        <source>No source evidence yet.</source>
        <translation>[Ñö šöûřçé évîdéñçé ýét. ~·~·~·~·~]</translation>
    </message>
</context>
</TS>
