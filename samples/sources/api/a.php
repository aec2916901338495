<?php
// Names of suppliers come straight from the database.
$rows = query('select id, name from suppliers order by name');
