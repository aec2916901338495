<?php
$reviews = query("select stars, body from `reviews` where product_id = ?", [$id]);
$from = query("select name from suppliers where id = ?", [$supplier]);
$images = query("select file from product_images where product_id = ?", [$id]);
