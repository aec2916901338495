<?php
// The first of two files of this name on the way through the folders.
$late = query('select * from orders where placed < ?', [$limit]);
$back = query('select sum(amount) from refunds');
$codes = query('select code from coupons');
