<?php
// The second file of this name: not listed for a table that lists the first one.
$customer = query('select name from customers where id = ?', [$me]);
$orders = query('select id, placed, total from orders where customer_id = ?', [$me]);
foreach (query('select label from menü_items') as $item) echo $item['label'];
