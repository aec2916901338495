<?php
$admins = query("select user_id from user_roles where role = 'admin'");
