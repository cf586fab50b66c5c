<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>Contacts</name>
    <message>
        <source>No friends yet</source>
        <translation>Noch keine Freunde</translation>
    </message>
</context>
</TS>
